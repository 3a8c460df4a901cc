#ifndef KOVRAN_SRC_H265_PROFILE_ROW_H
#define KOVRAN_SRC_H265_PROFILE_ROW_H

#include <kovran/h265/h265_profile_tier_level.h>

namespace kovran {

// A profile of Annexes A, G, H and I: its number, and what tells it from others of that number, the
// chroma formats up to this chroma_format_idc, the deepest samples, whether all pictures are intra,
// and whether there is only one.
struct profile_row {
    unsigned int profile_idc;
    const char* name;
    unsigned int chroma;
    unsigned int bit_depth;
    bool is_intra;
    bool is_one_picture;

    // Of table A.10; 0 both for the profiles whose factors are not kept here.
    unsigned int CpbVclFactor;
    unsigned int CpbNalFactor;
};

// The profile that a layer has, as h265_profile_name() says; null when it is not known.
[[nodiscard]] const profile_row* find_profile(const h265_profile_tier_level::layer_t& layer);

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_PROFILE_ROW_H
