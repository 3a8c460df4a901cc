#include <kovran/h265/h265_profile_tier_level.h>

#include "h2645_common/reading.h"
#include "h265/h265_profile_tier_level.syntax.h"
#include "h265/reading_rules.h"

namespace kovran {

bool h265_profile_tier_level::layer_t::parse(h2645_common_bitreader& reader) {
    reading<own_rules> walk(reader);
    return profile_tier_level_layer(walk, *this);
}

bool h265_profile_tier_level::parse(bool profilePresentFlag, unsigned int maxNumSubLayersMinus1,
                                    h2645_common_bitreader& reader) {
    reading<own_rules> walk(reader);
    return profile_tier_level(walk, *this, profilePresentFlag, maxNumSubLayersMinus1);
}

bool h265_profile_tier_level::parse_standard(bool profilePresentFlag,
                                             unsigned int maxNumSubLayersMinus1,
                                             h2645_common_bitreader& reader) {
    *this = {};
    reading<standard_rules> walk(reader);
    return profile_tier_level(walk, *this, profilePresentFlag, maxNumSubLayersMinus1);
}

}  // namespace kovran
