#include <kovran/h265/h265_level.h>

int main() {
    const kovran::h265_level_limits* const limits = kovran::h265_find_level_limits(93);
    kovran::h265_nal_sps sps;
    kovran::h265_profile_tier_level::layer_t& layer = sps.profile_tier_level.general;
    layer.profile_idc = 1;
    layer.level_idc = 93;
    return limits != nullptr && limits->MaxTileRows == 3 &&
                   kovran::h265_bit_limits_of(layer).vcl_bit_rate == 10000000 &&
                   kovran::h265_max_dpb_size(sps) == 16
               ? 0
               : 1;
}
