#ifndef KOVRAN_H265_H265_PROFILE_NAME_H
#define KOVRAN_H265_H265_PROFILE_NAME_H

#include <kovran/export.h>
#include <kovran/h265/h265_profile_tier_level.h>

namespace kovran {

// The profile that profile_idc and the constraint flags of a layer stand for, as Annexes A, G, H
// and I call it: "Main 10", "Main 4:2:2 10 Intra". Flags that no profile has exactly stand for the
// least capable one that allows all that they allow. Where there is none, or profile_idc is 0, the
// name is that of the lowest profile_compatibility_flag that is set, but a still picture is one
// whatever else its flags say. "" when nothing is known, as with every profile_space but 0; never
// null.
[[nodiscard]] KOVRAN_API const char* h265_profile_name(
    const h265_profile_tier_level::layer_t& layer);

}  // namespace kovran

#endif  // KOVRAN_H265_H265_PROFILE_NAME_H
