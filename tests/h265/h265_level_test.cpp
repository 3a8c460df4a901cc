#include <kovran/h265/h265_level.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

namespace kovran {
namespace {

using layer = h265_profile_tier_level::layer_t;

layer layer_of(unsigned char profile_idc, unsigned char level_idc, bool high_tier = false) {
    layer general;
    general.profile_idc = profile_idc;
    general.level_idc = level_idc;
    general.tier_flag = high_tier;
    return general;
}

// Main 4:2:2 10 at level 5.1 of the High tier.
layer main_422_10() {
    layer general = layer_of(4, 153, /*high_tier=*/true);
    general.max_12bit_constraint_flag = true;
    general.max_10bit_constraint_flag = true;
    general.max_422chroma_constraint_flag = true;
    general.lower_bit_rate_constraint_flag = true;
    return general;
}

unsigned int dpb_size(unsigned char level_idc, unsigned int width, unsigned int height,
                      unsigned char profile_idc = 1) {
    h265_nal_sps sps;
    sps.profile_tier_level.general = layer_of(profile_idc, level_idc);
    sps.pic_width_in_luma_samples = width;
    sps.pic_height_in_luma_samples = height;
    return h265_max_dpb_size(sps);
}

void expect_limits(const h265_bit_limits& limits, std::uint64_t vcl_bit_rate,
                   std::uint64_t vcl_cpb_size, std::uint64_t nal_bit_rate,
                   std::uint64_t nal_cpb_size) {
    EXPECT_EQ(limits.vcl_bit_rate, vcl_bit_rate);
    EXPECT_EQ(limits.vcl_cpb_size, vcl_cpb_size);
    EXPECT_EQ(limits.nal_bit_rate, nal_bit_rate);
    EXPECT_EQ(limits.nal_cpb_size, nal_cpb_size);
}

void expect_no_limits(const layer& general) {
    expect_limits(h265_bit_limits_of(general), 0, 0, 0, 0);
}

TEST(H265Level, HasTheLimitsOfEachLevel) {
    struct row {
        unsigned char level_idc;
        std::uint64_t MaxLumaPs;
        std::uint64_t MaxLumaSr;
        unsigned int MaxSliceSegmentsPerPicture;
        unsigned int MaxTileRows;
        unsigned int MaxTileCols;
        std::uint64_t MaxCPB[2];
        std::uint64_t MaxBR[2];
        unsigned int MinCrBase[2];
    };
    const std::vector<row> rows = {
        {30, 36864, 552960, 16, 1, 1, {350, 0}, {128, 0}, {2, 2}},
        {60, 122880, 3686400, 16, 1, 1, {1500, 0}, {1500, 0}, {2, 2}},
        {63, 245760, 7372800, 20, 1, 1, {3000, 0}, {3000, 0}, {2, 2}},
        {90, 552960, 16588800, 30, 2, 2, {6000, 0}, {6000, 0}, {2, 2}},
        {93, 983040, 33177600, 40, 3, 3, {10000, 0}, {10000, 0}, {2, 2}},
        {120, 2228224, 66846720, 75, 5, 5, {12000, 30000}, {12000, 30000}, {4, 4}},
        {123, 2228224, 133693440, 75, 5, 5, {20000, 50000}, {20000, 50000}, {4, 4}},
        {150, 8912896, 267386880, 200, 11, 10, {25000, 100000}, {25000, 100000}, {6, 4}},
        {153, 8912896, 534773760, 200, 11, 10, {40000, 160000}, {40000, 160000}, {8, 4}},
        {156, 8912896, 1069547520, 200, 11, 10, {60000, 240000}, {60000, 240000}, {8, 4}},
        {180, 35651584, 1069547520, 600, 22, 20, {60000, 240000}, {60000, 240000}, {8, 4}},
        {183, 35651584, 2139095040, 600, 22, 20, {120000, 480000}, {120000, 480000}, {8, 4}},
        {186, 35651584, 4278190080, 600, 22, 20, {240000, 800000}, {240000, 800000}, {6, 4}},
    };
    for (const row& expected : rows) {
        SCOPED_TRACE(int{expected.level_idc});
        const h265_level_limits* const limits = h265_find_level_limits(expected.level_idc);
        ASSERT_NE(limits, nullptr);
        EXPECT_EQ(limits->level_idc, expected.level_idc);
        EXPECT_EQ(limits->MaxLumaPs, expected.MaxLumaPs);
        EXPECT_EQ(limits->MaxLumaSr, expected.MaxLumaSr);
        EXPECT_EQ(limits->MaxSliceSegmentsPerPicture, expected.MaxSliceSegmentsPerPicture);
        EXPECT_EQ(limits->MaxTileRows, expected.MaxTileRows);
        EXPECT_EQ(limits->MaxTileCols, expected.MaxTileCols);
        for (const int tier : {0, 1}) {
            EXPECT_EQ(limits->MaxCPB[tier], expected.MaxCPB[tier]);
            EXPECT_EQ(limits->MaxBR[tier], expected.MaxBR[tier]);
            EXPECT_EQ(limits->MinCrBase[tier], expected.MinCrBase[tier]);
        }
    }
    unsigned int levels = 0;
    for (unsigned int level_idc = 0; level_idc < 256; ++level_idc) {
        levels +=
            h265_find_level_limits(static_cast<unsigned char>(level_idc)) != nullptr ? 1U : 0U;
    }
    EXPECT_EQ(levels, rows.size());
}

// MaxLumaPs of level 4 is 2228224: its quarter, half and three quarters are 557056, 1114112 and
// 1671168.
TEST(H265Level, HoldsMorePicturesOfSmallerSize) {
    EXPECT_EQ(dpb_size(120, 1920, 1088), 6U);
    EXPECT_EQ(dpb_size(120, 1600, 912), 8U);
    EXPECT_EQ(dpb_size(120, 1280, 720), 12U);
    EXPECT_EQ(dpb_size(120, 832, 480), 16U);
    EXPECT_EQ(dpb_size(120, 3840, 2160), 6U);
}

TEST(H265Level, HoldsAsManyPicturesAtAFractionAsBelowIt) {
    EXPECT_EQ(dpb_size(120, 1024, 544), 16U);
    EXPECT_EQ(dpb_size(120, 557057, 1), 12U);
    EXPECT_EQ(dpb_size(120, 1024, 1088), 12U);
    EXPECT_EQ(dpb_size(120, 1114113, 1), 8U);
    EXPECT_EQ(dpb_size(120, 1536, 1088), 8U);
    EXPECT_EQ(dpb_size(120, 1671169, 1), 6U);
}

TEST(H265Level, HoldsOnePictureMoreWhereTheCurrentOneMayBeAReference) {
    for (const unsigned char profile : std::vector<unsigned char>{9, 11}) {
        EXPECT_EQ(dpb_size(120, 1920, 1088, profile), 7U);
        EXPECT_EQ(dpb_size(120, 1600, 912, profile), 9U);
        EXPECT_EQ(dpb_size(120, 1280, 720, profile), 14U);
        EXPECT_EQ(dpb_size(120, 832, 480, profile), 16U);
    }
    EXPECT_EQ(dpb_size(120, 1920, 1088, 10), 6U);

    h265_nal_sps sps;
    sps.profile_tier_level.general = layer_of(4, 120);
    sps.profile_tier_level.general.profile_compatibility_flag.resize(32);
    sps.profile_tier_level.general.profile_compatibility_flag[11] = true;
    sps.pic_width_in_luma_samples = 1920;
    sps.pic_height_in_luma_samples = 1088;
    EXPECT_EQ(h265_max_dpb_size(sps), 7U);
}

TEST(H265Level, KnowsNoCompatibilityWithProfilesThatAreNotListed) {
    h265_nal_sps sps;
    sps.profile_tier_level.general = layer_of(4, 120);
    sps.pic_width_in_luma_samples = 1920;
    sps.pic_height_in_luma_samples = 1088;
    sps.profile_tier_level.general.profile_compatibility_flag.assign(9, true);
    EXPECT_EQ(h265_max_dpb_size(sps), 6U);
    sps.profile_tier_level.general.profile_compatibility_flag.assign(10, true);
    EXPECT_EQ(h265_max_dpb_size(sps), 7U);
}

TEST(H265Level, HoldsSixteenPicturesWithoutLimits) {
    for (const unsigned char level : std::vector<unsigned char>{0, 1, 189, 255}) {
        EXPECT_EQ(dpb_size(level, 8192, 4320), 16U);
    }
}

TEST(H265Level, AbsurdPicturesAreTooLarge) {
    EXPECT_EQ(dpb_size(30, 0xFFFFFFFF, 0xFFFFFFFF), 6U);
    EXPECT_EQ(dpb_size(30, 0, 0), 16U);
}

TEST(H265Level, LimitsTheBitsByTheTier) {
    for (const unsigned char profile : std::vector<unsigned char>{1, 2, 3}) {
        expect_limits(h265_bit_limits_of(layer_of(profile, 123)), 20000000, 20000000, 22000000,
                      22000000);
        expect_limits(h265_bit_limits_of(layer_of(profile, 123, /*high_tier=*/true)), 50000000,
                      50000000, 55000000, 55000000);
    }
    expect_limits(h265_bit_limits_of(layer_of(1, 30)), 128000, 350000, 140800, 385000);
}

TEST(H265Level, LimitsTheBitsByTheProfile) {
    expect_limits(h265_bit_limits_of(main_422_10()), 266720000, 266720000, 293280000, 293280000);

    layer monochrome = layer_of(4, 93);
    monochrome.max_12bit_constraint_flag = true;
    monochrome.max_10bit_constraint_flag = true;
    monochrome.max_8bit_constraint_flag = true;
    monochrome.max_422chroma_constraint_flag = true;
    monochrome.max_420chroma_constraint_flag = true;
    monochrome.max_monochrome_constraint_flag = true;
    monochrome.lower_bit_rate_constraint_flag = true;
    expect_limits(h265_bit_limits_of(monochrome), 6670000, 6670000, 7330000, 7330000);
}

TEST(H265Level, AllowsTwiceTheRateUnlessTheLowerOneIsPromised) {
    layer intra = main_422_10();
    intra.intra_constraint_flag = true;
    expect_limits(h265_bit_limits_of(intra), 266720000, 266720000, 293280000, 293280000);
    intra.lower_bit_rate_constraint_flag = false;
    expect_limits(h265_bit_limits_of(intra), 533440000, 266720000, 586560000, 293280000);
}

TEST(H265Level, LimitsNoBitsThatItDoesNotKnow) {
    expect_no_limits(layer_of(1, 93, /*high_tier=*/true));
    expect_no_limits(layer_of(1, 255));
    expect_no_limits(layer_of(1, 31));
    expect_no_limits(layer_of(0, 93));
    for (unsigned char profile = 5; profile < 32; ++profile) {
        expect_no_limits(layer_of(profile, 93));
    }
    layer other_space = layer_of(1, 93);
    other_space.profile_space = 1;
    expect_no_limits(other_space);
}

}  // namespace
}  // namespace kovran
