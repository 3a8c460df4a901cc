#include <kovran/h2645_common/h2645_common_read_xostylesei_vlu32.h>

#include <algorithm>
#include <cstdint>

namespace kovran {

unsigned int h2645_common_read_xostylesei_vlu32(unsigned char*& p, unsigned char* end) {
    constexpr unsigned int cut_off = 0xFFFFFFFF;
    constexpr std::uint64_t largest = cut_off - 1;

    std::uint64_t sum = 0;
    while (p < end) {
        const unsigned char byte = *p++;
        sum += byte;
        if (byte != 0xFF) {
            return static_cast<unsigned int>(std::min(sum, largest));
        }
    }
    return cut_off;
}

}  // namespace kovran
