#include <kovran/h2645_common/h2645_common_bitreader.h>

int main() {
    const unsigned char bytes[] = {0b1'010'1000};  // ue(v) 0, se(v) 1, trailing bits
    kovran::h2645_common_bitreader bits(bytes, bytes + sizeof bytes);
    bool right = bits.ue() == 0 && bits.se() == 1;
    right = right && !kovran::h2645_common_more_rbsp_data(bits);
    return right && kovran::h2645_common_skip_rbsp_trailing_bits(bits) ? 0 : 1;
}
