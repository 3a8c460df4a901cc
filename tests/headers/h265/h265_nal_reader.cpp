#include <kovran/h265/h265_nal_reader.h>

int main() {
    unsigned char stream[] = {0, 0, 1, 0x46, 0x01, 0x50};
    unsigned char* const end = stream + sizeof stream;
    kovran::h265_nal_reader reader(kovran::nalfmt_annex_b);
    reader.scan(stream, end);
    bool right = reader.found && reader.nal.nal_unit_type == kovran::AUD_NUT;
    unsigned char rbsp[sizeof stream];
    right = right && reader.block_decode(rbsp, sizeof rbsp) == 1 && rbsp[0] == 0x50;
    reader.scan_annex_b(stream, end);
    reader.rewind();
    reader.do_give_up();
    return right && reader.gave_up ? 0 : 1;
}
