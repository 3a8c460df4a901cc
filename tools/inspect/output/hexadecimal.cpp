#include "output/hexadecimal.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace kovran::inspect {

void write_hexadecimal(const unsigned char* first, const unsigned char* last, output& lines) {
    constexpr const char* digits = "0123456789abcdef";
    constexpr std::ptrdiff_t bytes_of_piece = 4096;
    std::array<char, 2 * bytes_of_piece> piece{};
    while (first != last) {
        const unsigned char* const end = first + std::min(bytes_of_piece, last - first);
        std::size_t size = 0;
        for (; first != end; ++first) {
            piece[size++] = digits[*first >> 4];
            piece[size++] = digits[*first & 0xF];
        }
        lines.write({piece.data(), size});
    }
}

}  // namespace kovran::inspect
