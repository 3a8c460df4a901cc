#include <kovran/h265/h265_profile_tier_level.h>

int main() {
    kovran::h2645_common_bitreader bits;
    kovran::h265_profile_tier_level profile;
    bool right = profile.parse(/*profilePresentFlag=*/true, /*maxNumSubLayersMinus1=*/0, bits);
    right = right && profile.general.parse(bits);
    // There is no data.
    right = right &&
            !profile.parse_standard(/*profilePresentFlag=*/true, /*maxNumSubLayersMinus1=*/0, bits);
    kovran::h265_profile::level_decomposed level;
    level.parse(profile.general.level_idc);
    return right && level.major == 0 ? 0 : 1;
}
