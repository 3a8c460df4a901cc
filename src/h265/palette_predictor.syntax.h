#ifndef KOVRAN_SRC_H265_PALETTE_PREDICTOR_SYNTAX_H
#define KOVRAN_SRC_H265_PALETTE_PREDICTOR_SYNTAX_H

#include "h2645_common/element.h"

#include <cstddef>

namespace kovran {

// The samples that a palette predictor begins with, in an SPS and in a PPS. The counts and the bit
// depths have been compared with their bounds.
template <class Walker, class Rows>
[[nodiscard]] bool palette_predictor_initializers(Walker& walk, element<Rows&> initializer,
                                                  std::size_t entries, bool monochrome,
                                                  unsigned int luma_bit_depth_minus8,
                                                  unsigned int chroma_bit_depth_minus8) {
    const unsigned int components = monochrome ? 1 : 3;
    for (unsigned int comp = 0; comp < components; ++comp) {
        const auto bits = static_cast<unsigned char>(
            8 + (comp == 0 ? luma_bit_depth_minus8 : chroma_bit_depth_minus8));
        if (!walk.grow(entries, initializer.field[comp])) {
            return false;
        }
        for (std::size_t i = 0; i < entries; ++i) {
            walk.u_v(bits, initializer[comp][i]);
        }
    }
    return true;
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_PALETTE_PREDICTOR_SYNTAX_H
