#include <kovran/h265/h265_nal_writer.h>

int main() {
    unsigned char output[16];
    kovran::h265_nal_writer writer(output, output, output + sizeof output, kovran::nalfmt_annex_b);
    kovran::h265_nal nal;
    nal.decode_header(0x4601);
    const unsigned char rbsp[] = {0x50};
    const bool right = writer.block_encode(rbsp, sizeof rbsp, nal, /*zero_bytes=*/1) == 7;
    return right && writer.data_length() == 7 && !writer.full() ? 0 : 1;
}
