#!/bin/sh
# Usage: ffmpeg_decodes_copies.sh KOVRAN STREAMS
# FFmpeg decodes a stream and its copy, made by way of another format, to the same frames. Exit
# status 77: there is no FFmpeg.
set -eu

kovran=$1
streams=$2
if ! command -v ffmpeg >/dev/null; then
    echo "skipped: install FFmpeg to run this test"
    exit 77
fi
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

frames() {
    ffmpeg -nostdin -v error -f hevc -i "$1" -f framemd5 -
}

for name in main_default hm_ra16 hm_field slices4_ctu16 svt_main10 turing_segment; do
    stream=$streams/$name.hevc
    frames "$stream" > "$folder/expected"
    for format in length16 length24 length32; do
        "$kovran" copy "$stream" "$folder/$format" --to $format
        "$kovran" copy "$folder/$format" "$folder/again.hevc" --from $format
        frames "$folder/again.hevc" > "$folder/actual"
        cmp "$folder/expected" "$folder/actual"
    done
    # A comparison of nothing with nothing would also succeed.
    test "$(grep -vc '^#' "$folder/actual")" -gt 1
done
