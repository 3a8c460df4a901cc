"""Bits as a string of digits, and the bytes they make."""


def whole_bytes(bits):
    """With zeros up to the byte boundary."""
    bits += "0" * (-len(bits) % 8)
    return int("1" + bits, 2).to_bytes(len(bits) // 8 + 1, "big")[1:]


def exp_golomb(code):
    return f"{code + 1:0{2 * (code + 1).bit_length() - 1}b}"


def without_emulation_prevention(unit):
    payload = bytearray()
    zeros = 0
    for byte in unit:
        if zeros >= 2 and byte == 3:
            zeros = 0
            continue
        payload.append(byte)
        zeros = zeros + 1 if byte == 0 else 0
    return bytes(payload)
