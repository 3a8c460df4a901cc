#ifndef KOVRAN_SRC_H265_SEI_CODE_VALUE_WIDTH_H
#define KOVRAN_SRC_H265_SEI_CODE_VALUE_WIDTH_H

namespace kovran {

// The width of code values of a bit depth: whole bytes, clauses D.3.15 and D.3.33.
[[nodiscard]] constexpr unsigned char code_value_width(unsigned int bit_depth) {
    return static_cast<unsigned char>((bit_depth + 7) / 8 * 8);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_SEI_CODE_VALUE_WIDTH_H
