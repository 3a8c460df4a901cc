#include <kovran/h2645_common/h2645_common_nal_reader.h>

// Scanning and decoding take the header of a codec: h265_nal_reader.cpp calls them.
struct header {};

int main() {
    kovran::h2645_common_nal_reader<header, kovran::h2645_common_nalfmt> reader(
        kovran::nalfmt_annex_b);
    reader.rewind();
    reader.do_give_up();
    return reader.gave_up && reader.nalfmt == kovran::nalfmt_annex_b ? 0 : 1;
}
