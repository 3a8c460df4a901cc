#ifndef KOVRAN_H2645_COMMON_H2645_COMMON_ELEMENT_NAME_H
#define KOVRAN_H2645_COMMON_H2645_COMMON_ELEMENT_NAME_H

#include <kovran/export.h>

#include <array>
#include <cstddef>
#include <string>

namespace kovran {

// The standard's name of a syntax element or a structure: delta_poc_s0_minus1[2],
// sub_layer_level_idc[0]. The texts are constants of the library.
struct h2645_common_element_name {
    static constexpr unsigned int most_indices = 6;

    const char* prefix = "";  // "general_" or "sub_layer_" in profile_tier_level(), else ""
    const char* name = "";
    std::array<unsigned int, most_indices> indices{};  // outermost first
    unsigned int index_count = 0;
    std::size_t run = 0;  // bytes told together: [0..run - 1] stands behind the indices
};

// The name as the standard writes it, with its indices in brackets.
[[nodiscard]] KOVRAN_API std::string to_string(const h2645_common_element_name& name);

}  // namespace kovran

#endif  // KOVRAN_H2645_COMMON_H2645_COMMON_ELEMENT_NAME_H
