#include <kovran/kovran.h>

#include <cstdio>

int main() {
    unsigned char stream[] = {0, 0, 0, 1, 0x46, 0x01, 0x50};
    kovran::h265_nal_reader reader(kovran::nalfmt_annex_b);
    reader.scan(stream, stream + sizeof stream);
    unsigned char rbsp[sizeof stream];
    const std::size_t size = reader.block_decode(rbsp, sizeof rbsp);

    kovran::h2645_common_bitreader bits(rbsp, rbsp + size);
    kovran::h265_nal_aud aud;
    const bool parsed = aud.parse(bits);
    std::printf("%s: pic_type %d\n", kovran::h265_nal_unit_type_to_str(reader.nal.nal_unit_type),
                aud.pic_type);
    return parsed && aud.pic_type == 2 ? 0 : 1;
}
