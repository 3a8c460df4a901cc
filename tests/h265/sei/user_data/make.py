#!/usr/bin/env python3
"""Makes t35.hevc, whose pictures have user data of ITU-T T.35, and t35.txt, what FFmpeg reads of it.

usage: make.py

x265 writes the messages, with payloads made up here: captions for the first pictures, HDR10+ for the others.
ffprobe tells the fields of HDR10+, and the bytes of captions, which it takes for a stream of subtitles.
"""
import base64, random, re, subprocess, tempfile

CAPTIONS, HDR10_PLUS = 6, 18
made_up = random.Random(94)

class Bits:
    def __init__(self):
        self.text = ""

    def u(self, width, value):
        self.text += format(value, "0%db" % width)
        return value

    def any(self, *widths):
        for width in widths:
            self.u(width, made_up.getrandbits(width))

    def payload(self, code):
        text = self.text + "0" * (-len(self.text) % 8)
        return bytes.fromhex(code) + bytes(int(text[i:i + 8], 2) for i in range(0, len(text), 8))

def captions(count):
    bits = Bits()
    bits.any(1)
    bits.u(1, 1)  # process_cc_data_flag, without which FFmpeg drops them
    bits.any(1)
    bits.u(5, count)
    bits.any(8)
    for _ in range(count):
        bits.u(5, 31)
        bits.any(1, 2, 8, 8)
    bits.u(8, 255)
    return bits.payload("b500314741393403")

def table(bits):
    if bits.u(1, made_up.randint(0, 1)):
        rows, columns = bits.u(5, made_up.randint(2, 25)), bits.u(5, made_up.randint(2, 25))
        bits.any(*[4] * rows * columns)

def hdr10_plus():
    bits = Bits()
    bits.u(8, made_up.randint(0, 1))
    windows = bits.u(2, made_up.randint(1, 3))
    for _ in range(windows - 1):
        bits.any(16, 16, 16, 16, 16, 16, 8, 16, 16, 16, 1)
    bits.any(27)
    table(bits)
    for _ in range(windows):
        bits.any(17, 17, 17, 17)
        bits.any(*[7, 17] * bits.u(4, made_up.randint(0, 15)))
        bits.any(10)
    table(bits)
    for _ in range(windows):
        if bits.u(1, made_up.randint(0, 1)):
            bits.any(12, 12)
            bits.any(*[10] * bits.u(4, made_up.randint(0, 15)))
        if bits.u(1, made_up.randint(0, 1)):
            bits.any(6)
    return bits.payload("b5003c000104")

def output_of(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout

# The fields of a frame's side data, a line for each array; ffprobe divides some values.
def fields(frame):
    text = "".join(re.findall(r"\[SIDE_DATA\]\n(.*?)\[/SIDE_DATA\]", frame, re.S))
    text = re.sub(r"(?<=\d)/\d+$", "", text, flags=re.M)
    # It tells the first corner of a window once more behind the second one.
    text = re.sub(r"(lower_right_corner_y=.*\n)window_upper.*\nwindow_upper.*\n", r"\1", text)
    return re.sub(r"^(maxscl|bezier_curve_anchors|\w+_actual_peak_luminance)=(.*)\n((?:\1=.*\n)+)", lambda run: "%s=%s %s\n" % (
        run[1], run[2], " ".join(re.findall("=(.*)", run[3]))), text, flags=re.M)

def write_stream(payloads, folder):
    with open(folder + "/t35.nalus", "w") as nalus:
        for picture, payload in enumerate(payloads):
            nalus.write("%d PREFIX 39/4 %s\n" % (picture, base64.b64encode(payload).decode()))
    output_of("ffmpeg", "-y", "-f", "lavfi", "-i", "color=gray:size=64x64:rate=25", "-frames:v", str(len(payloads)),
              "-pix_fmt", "yuv420p", folder + "/t35.y4m")
    output_of("x265", folder + "/t35.y4m", "--no-info", "--bframes", "0", "--keyint", "-1", "--qp", "40", "--nalu-file",
              folder + "/t35.nalus", "-o", "t35.hevc")

def main():
    payloads = [captions(count) for count in (1, 2, 3, 20, 30, 31)] + [hdr10_plus() for _ in range(HDR10_PLUS)]
    with tempfile.TemporaryDirectory() as folder:
        write_stream(payloads, folder)

    frames = output_of("ffprobe", "-show_frames", "t35.hevc").split("[FRAME]")[1:]
    packets = output_of("ffprobe", "-f", "lavfi", "-i", "movie=t35.hevc[out0+subcc]", "-select_streams", "s", "-show_packets",
                        "-show_data").split("[PACKET]")[1:]
    with open("t35.txt", "w") as text:
        for picture, frame in enumerate(frames):
            text.write("picture %d\n" % picture)
            text.write(fields(frame))
            if picture < CAPTIONS:
                rows = re.findall(r"^[0-9a-f]{8}: (.{40})", packets[picture], re.M)
                text.write("data=%s\n" % "".join(rows).replace(" ", ""))

if __name__ == "__main__":
    main()
