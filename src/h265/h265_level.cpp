#include <kovran/h265/h265_level.h>

#include "h265/profile_row.h"
#include "h265/sub_layer_ordering.h"

#include <algorithm>
#include <iterator>

namespace kovran {
namespace {

constexpr h265_level_limits levels[] = {
    {30, 36864, {350, 0}, 16, 1, 1, 552960, {128, 0}, {2, 2}},
    {60, 122880, {1500, 0}, 16, 1, 1, 3686400, {1500, 0}, {2, 2}},
    {63, 245760, {3000, 0}, 20, 1, 1, 7372800, {3000, 0}, {2, 2}},
    {90, 552960, {6000, 0}, 30, 2, 2, 16588800, {6000, 0}, {2, 2}},
    {93, 983040, {10000, 0}, 40, 3, 3, 33177600, {10000, 0}, {2, 2}},
    {120, 2228224, {12000, 30000}, 75, 5, 5, 66846720, {12000, 30000}, {4, 4}},
    {123, 2228224, {20000, 50000}, 75, 5, 5, 133693440, {20000, 50000}, {4, 4}},
    {150, 8912896, {25000, 100000}, 200, 11, 10, 267386880, {25000, 100000}, {6, 4}},
    {153, 8912896, {40000, 160000}, 200, 11, 10, 534773760, {40000, 160000}, {8, 4}},
    {156, 8912896, {60000, 240000}, 200, 11, 10, 1069547520, {60000, 240000}, {8, 4}},
    {180, 35651584, {60000, 240000}, 600, 22, 20, 1069547520, {60000, 240000}, {8, 4}},
    {183, 35651584, {120000, 480000}, 600, 22, 20, 2139095040, {120000, 480000}, {8, 4}},
    {186, 35651584, {240000, 800000}, 600, 22, 20, 4278190080, {240000, 800000}, {6, 4}},
};

// The profiles for screen content, whose sps_curr_pic_ref_enabled_flag may be 1.
bool may_refer_to_itself(const h265_profile_tier_level::layer_t& layer) {
    const auto is_any_of = [&layer](auto... profile) {
        const auto& compatible = layer.profile_compatibility_flag;
        return ((layer.profile_idc == profile ||
                 (profile < compatible.size() && compatible[profile])) ||
                ...);
    };
    return is_any_of(9U, 11U);
}

}  // namespace

const h265_level_limits* h265_find_level_limits(unsigned char level_idc) {
    const auto* const found =
        std::find_if(std::begin(levels), std::end(levels),
                     [level_idc](const auto& level) { return level.level_idc == level_idc; });
    return found != std::end(levels) ? found : nullptr;
}

h265_bit_limits h265_bit_limits_of(const h265_profile_tier_level::layer_t& layer) {
    const h265_level_limits* const level = h265_find_level_limits(layer.level_idc);
    const profile_row* const profile = find_profile(layer);
    if (level == nullptr || profile == nullptr) {
        return {};
    }
    // Of the format range extensions; the profiles before them have none.
    constexpr unsigned int format_range = 4;
    const std::uint64_t HbrFactor =
        profile->profile_idc == format_range && !layer.lower_bit_rate_constraint_flag ? 2 : 1;
    const std::uint64_t MaxBR = level->MaxBR[layer.tier_flag ? 1 : 0];
    const std::uint64_t MaxCPB = level->MaxCPB[layer.tier_flag ? 1 : 0];
    return {profile->CpbVclFactor * HbrFactor * MaxBR, profile->CpbVclFactor * MaxCPB,
            profile->CpbNalFactor * HbrFactor * MaxBR, profile->CpbNalFactor * MaxCPB};
}

unsigned int h265_max_dpb_size(const h265_nal_sps& sps) {
    const h265_level_limits* const level =
        h265_find_level_limits(sps.profile_tier_level.general.level_idc);
    if (level == nullptr) {
        return max_dpb_size;
    }
    const unsigned int maxDpbPicBuf = may_refer_to_itself(sps.profile_tier_level.general) ? 7 : 6;
    const std::uint64_t PicSizeInSamplesY =
        std::uint64_t{sps.pic_width_in_luma_samples} * sps.pic_height_in_luma_samples;
    if (PicSizeInSamplesY <= level->MaxLumaPs >> 2) {
        return std::min(4 * maxDpbPicBuf, max_dpb_size);
    }
    if (PicSizeInSamplesY <= level->MaxLumaPs >> 1) {
        return std::min(2 * maxDpbPicBuf, max_dpb_size);
    }
    if (PicSizeInSamplesY <= (3 * level->MaxLumaPs) >> 2) {
        return std::min(4 * maxDpbPicBuf / 3, max_dpb_size);
    }
    return maxDpbPicBuf;
}

}  // namespace kovran
