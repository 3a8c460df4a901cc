#include <kovran/h2645_common/bit_io.h>

int main() {
    using source = kovran::bit_io::data_source_memory_alt1<unsigned char, const unsigned char*>;
    kovran::bit_io::reader<kovran::bit_io::reservoir<unsigned int, 0>, source> bits;
    const unsigned char bytes[] = {0x01, 0x23, 0x45, 0x67, 0x89};
    bits.start = bits.current = bytes;
    bits.end = bytes + sizeof bytes;

    bits.skip(4);
    bits.align();
    bool right = bits.get<unsigned int>(8) == 0x23 && bits.bits_to_byte_boundary() == 0;
    right = right && bits.get_wide(20) == 0x45678 && bits.bit_position() == 36;
    source bytewise{bytes, bytes, bytes + sizeof bytes};
    bytewise.advance(4);
    right = right && bytewise.next<0>() == 0x89 &&
            source::address(bytewise.current) == source::address(bytewise.end);
    return right ? 0 : 1;
}
