#include <kovran/h2645_common/h2645_common_nal_writer.h>

// Encoding takes the header of a codec: h265_nal_writer.cpp calls it.
struct header {};

int main() {
    using nal_writer = kovran::h2645_common_nal_writer<header, kovran::h2645_common_nalfmt>;
    unsigned char output[8];
    nal_writer writer(output, output, output + sizeof output, kovran::nalfmt_annex_b);
    writer.setbuf(output, output + 3, output + sizeof output);
    const bool right = writer.data_length() == 3 && !writer.full();
    return right && nal_writer::recommended_output_size(2) == 35 ? 0 : 1;
}
