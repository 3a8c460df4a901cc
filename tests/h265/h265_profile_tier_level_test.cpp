#include <kovran/h265/h265_profile_tier_level.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <iterator>
#include <set>
#include <string>
#include <vector>

#include "support/bit_writer.h"
#include "support/parameter_sets.h"
#include "support/rbsp.h"
#include "support/same_fields.h"

namespace kovran {
namespace {

using layer_t = h265_profile_tier_level::layer_t;

// The profile part of a layer up to its four source flags, which are 0.
test::bit_writer profile_head(unsigned int profile_idc, std::uint32_t compatibility_flags) {
    test::bit_writer bits;
    bits.u<2>(0).u<1>(0).u<5>(profile_idc).u<32>(compatibility_flags).u<4>(0);
    return bits;
}

std::uint32_t compatible_with(unsigned int profile) {
    return 0x80000000U >> profile;
}

// The flags of the 43-bit region and the bit after it, each with its letter.
constexpr char letters[] = "cba210iol4n";
bool layer_t::*const region_flags[] = {&layer_t::max_12bit_constraint_flag,
                                       &layer_t::max_10bit_constraint_flag,
                                       &layer_t::max_8bit_constraint_flag,
                                       &layer_t::max_422chroma_constraint_flag,
                                       &layer_t::max_420chroma_constraint_flag,
                                       &layer_t::max_monochrome_constraint_flag,
                                       &layer_t::intra_constraint_flag,
                                       &layer_t::one_picture_only_constraint_flag,
                                       &layer_t::lower_bit_rate_constraint_flag,
                                       &layer_t::max_14bit_constraint_flag,
                                       &layer_t::inbld_flag};

std::string flags_set(const layer_t& layer) {
    std::string set;
    for (std::size_t i = 0; i < std::size(region_flags); ++i) {
        if (layer.*region_flags[i]) {
            set += letters[i];
        }
    }
    return set;
}

layer_t read_layer(h2645_common_bitreader& reader) {
    layer_t layer;
    layer.profile_present_flag = true;
    EXPECT_TRUE(layer.parse(reader));
    return layer;
}

// As the general layer, whose level stands behind the bits.
layer_t read_layer_by_the_standard(h2645_common_bitreader& reader) {
    constexpr unsigned int level_idc_bits = 8;
    h265_profile_tier_level ptl;
    h2645_common_bitreader with_level = reader;
    EXPECT_TRUE(ptl.parse_standard(true, 0, with_level));
    reader.skip(static_cast<unsigned int>(with_level.bit_position()) - level_idc_bits);
    return ptl.general;
}

// Which flag each of the 44 bits is, found by setting one bit at a time; '.' for a bit that is
// passed over.
template <class Read>
std::string region_of(unsigned int profile_idc, std::uint32_t compatibility_flags, Read read) {
    std::string region;
    for (unsigned int one = 0; one < 44; ++one) {
        test::bit_writer bits = profile_head(profile_idc, compatibility_flags);
        bits.u<44>(std::uint64_t{1} << (43 - one));
        test::rbsp input{test::bit_writer(bits).u<8>(93).bytes()};
        const std::string set = flags_set(read(input.reader));
        EXPECT_EQ(input.reader.bit_position(), bits.size());
        EXPECT_LE(set.size(), 1U);
        region += set.empty() ? "." : set;
    }
    return region;
}

std::string region_of(unsigned int profile_idc, std::uint32_t compatibility_flags) {
    return region_of(profile_idc, compatibility_flags, read_layer);
}

// The regions of clause 7.3.3.
const std::string dots_33(33, '.');
const std::string nine_flags = "cba210iol." + dots_33;
const std::string ten_flags = "cba210iol4" + dots_33;
const std::string one_picture_flag = ".......o" + std::string(35, '.');
const std::string no_flags(43, '.');

std::string expected_region(const std::set<unsigned int>& profiles) {
    const auto is = [&](std::initializer_list<unsigned int> any) {
        return std::any_of(any.begin(), any.end(),
                           [&](unsigned int profile) { return profiles.count(profile) != 0; });
    };
    const std::string inbld = is({1, 2, 3, 4, 5, 9, 11}) ? "n" : ".";
    if (is({4, 5, 6, 7, 8, 9, 10, 11})) {
        return (is({5, 9, 10, 11}) ? ten_flags : nine_flags) + inbld;
    }
    return (is({2}) ? one_picture_flag : no_flags) + inbld;
}

TEST(H265ProfileTierLevelLayer, ReadsEveryElementInItsPlace) {
    test::bit_writer bits;
    bits.u<2>(3).u<1>(1).u<5>(31);         // profile_space, tier_flag, profile_idc
    bits.u<32>(0xC0000003);                // profile_compatibility_flag[j]
    bits.u<1>(0).u<1>(1).u<1>(0).u<1>(1);  // the four source flags
    bits.u<43>(0x7FFFFFFFFFF).u<1>(1);     // reserved
    bits.u<8>(255);                        // level_idc
    test::rbsp input{bits.bytes()};
    layer_t layer;
    layer.profile_present_flag = true;
    layer.level_present_flag = true;
    EXPECT_TRUE(layer.parse(input.reader));
    EXPECT_EQ(input.reader.bit_position(), 96U);

    layer_t expected;
    expected.profile_space = 3;
    expected.tier_flag = true;
    expected.profile_idc = 31;
    expected.profile_compatibility_flag.assign(32, false);
    for (const std::size_t j : {0U, 1U, 30U, 31U}) {
        expected.profile_compatibility_flag[j] = true;
    }
    expected.interlaced_source_flag = true;
    expected.frame_only_constraint_flag = true;
    // Compatibility flag 1 makes inbld_flag of the last bit.
    expected.inbld_flag = true;
    expected.level_idc = 255;
    expected.profile_present_flag = true;
    expected.level_present_flag = true;
    expected.valid = true;
    EXPECT_TRUE(test::same_fields(layer, expected));
}

TEST(H265ProfileTierLevelLayer, ChoosesTheRegionByProfileIdc) {
    for (unsigned int profile = 0; profile < 32; ++profile) {
        EXPECT_EQ(region_of(profile, 0), expected_region({profile})) << profile;
    }
}

TEST(H265ProfileTierLevelLayer, ChoosesTheRegionByACompatibilityFlag) {
    for (unsigned int profile = 0; profile < 32; ++profile) {
        EXPECT_EQ(region_of(0, compatible_with(profile)), expected_region({0, profile})) << profile;
    }
}

TEST(H265ProfileTierLevelLayer, ChoosesTheSameRegionByTheStandard) {
    for (unsigned int profile = 0; profile < 32; ++profile) {
        EXPECT_EQ(region_of(profile, 0, read_layer_by_the_standard), expected_region({profile}))
            << profile;
        EXPECT_EQ(region_of(0, compatible_with(profile), read_layer_by_the_standard),
                  expected_region({0, profile}))
            << profile;
    }
}

TEST(H265ProfileTierLevelLayer, ChoosesTheRegionByIdcAndCompatibilityFlagTogether) {
    for (const unsigned int profile_idc : {1U, 2U, 3U, 4U, 6U, 9U, 10U, 12U}) {
        for (unsigned int profile = 0; profile < 32; ++profile) {
            EXPECT_EQ(region_of(profile_idc, compatible_with(profile)),
                      expected_region({profile_idc, profile}))
                << profile_idc << " and " << profile;
        }
    }
}

TEST(H265ProfileTierLevelLayer, OfProfile1AndCompatible2HasAOnePictureFlagAndInbldFlag) {
    EXPECT_EQ(region_of(1, compatible_with(2)), ".......o" + std::string(35, '.') + "n");
}

TEST(H265ProfileTierLevelLayer, OfProfile3HasInbldFlagOnly) {
    EXPECT_EQ(region_of(3, 0), std::string(43, '.') + "n");
}

TEST(H265ProfileTierLevelLayer, OfProfiles6To8HasNineFlagsAndNoInbldFlag) {
    for (const unsigned int profile : {6U, 7U, 8U}) {
        EXPECT_EQ(region_of(profile, 0), "cba210iol" + std::string(35, '.')) << profile;
    }
}

TEST(H265ProfileTierLevelLayer, OfProfile10HasTenFlagsAndNoInbldFlag) {
    EXPECT_EQ(region_of(10, 0), "cba210iol4" + std::string(34, '.'));
}

TEST(H265ProfileTierLevelLayer, LeavesTheFlagsOfOtherBranches) {
    const auto stale_flags_after = [](unsigned int profile_idc) {
        test::bit_writer bits = profile_head(profile_idc, 0);
        bits.u<44>(0);
        test::rbsp input{bits.bytes()};
        layer_t layer;
        for (bool layer_t::*const flag : region_flags) {
            layer.*flag = true;
        }
        layer.profile_present_flag = true;
        EXPECT_TRUE(layer.parse(input.reader));
        return flags_set(layer);
    };
    EXPECT_EQ(stale_flags_after(0), "cba210iol4n");
    EXPECT_EQ(stale_flags_after(1), "cba210iol4");
    EXPECT_EQ(stale_flags_after(2), "cba210il4");
    EXPECT_EQ(stale_flags_after(4), "4");
    EXPECT_EQ(stale_flags_after(5), "");
    EXPECT_EQ(stale_flags_after(6), "4n");
    EXPECT_EQ(stale_flags_after(10), "n");
    EXPECT_EQ(stale_flags_after(12), "cba210iol4n");
}

TEST(H265ProfileTierLevelLayer, ReadsNothingWhenNoPartIsPresent) {
    test::rbsp input{0xFF, 0xFF};
    layer_t layer;
    EXPECT_TRUE(layer.parse(input.reader));
    EXPECT_EQ(input.reader.bit_position(), 0U);
    layer_t expected;
    expected.valid = true;
    EXPECT_TRUE(test::same_fields(layer, expected));
}

TEST(H265ProfileTierLevelLayer, ReadsLevelAlone) {
    test::rbsp input{0x5D, 0xFF};
    layer_t layer;
    layer.level_present_flag = true;
    EXPECT_TRUE(layer.parse(input.reader));
    EXPECT_EQ(input.reader.bit_position(), 8U);
    layer_t expected;
    expected.level_present_flag = true;
    expected.level_idc = 93;
    expected.valid = true;
    EXPECT_TRUE(test::same_fields(layer, expected));
}

TEST(H265ProfileTierLevelLayer, ReadsProfileAlone) {
    test::bit_writer bits = profile_head(1, compatible_with(1));
    bits.u<44>(0);
    test::rbsp input{bits.bytes()};
    layer_t layer;
    layer.profile_present_flag = true;
    layer.level_idc = 120;
    EXPECT_TRUE(layer.parse(input.reader));
    EXPECT_EQ(input.reader.bit_position(), 88U);
    EXPECT_EQ(layer.profile_idc, 1);
    EXPECT_EQ(layer.level_idc, 120);
}

TEST(H265ProfileTierLevelLayer, KeepsAnAbsentProfile) {
    test::sample<h265_profile_tier_level> ptl = test::full_profile_tier_level();
    layer_t layer = ptl.record.general;
    layer.profile_present_flag = false;
    test::rbsp input{30};
    EXPECT_TRUE(layer.parse(input.reader));

    layer_t expected = ptl.record.general;
    expected.profile_present_flag = false;
    expected.level_idc = 30;
    EXPECT_TRUE(test::same_fields(layer, expected));
}

TEST(H265ProfileTierLevelLayer, BringsTheCompatibilityFlagsTo32) {
    for (const std::size_t size_before : {1U, 31U, 32U, 33U, 100U}) {
        test::bit_writer bits = profile_head(0, 0);
        bits.u<44>(0);
        test::rbsp input{bits.bytes()};
        layer_t layer;
        layer.profile_present_flag = true;
        layer.profile_compatibility_flag.assign(size_before, true);
        EXPECT_TRUE(layer.parse(input.reader));
        EXPECT_EQ(layer.profile_compatibility_flag, std::vector<bool>(32, false)) << size_before;
    }
}

// The 96 bits of a general layer of level 3.1.
test::bit_writer general_layer() {
    return test::minimal_profile_tier_level();
}

TEST(H265ProfileTierLevel, ReadsEveryElementInItsPlace) {
    const test::sample<h265_profile_tier_level> sample = test::full_profile_tier_level();
    test::rbsp input{sample.syntax.bytes()};
    h265_profile_tier_level ptl;
    EXPECT_TRUE(ptl.parse(/*profilePresentFlag=*/true, /*maxNumSubLayersMinus1=*/2, input.reader));
    EXPECT_EQ(input.reader.bit_position(), sample.syntax.size());
    EXPECT_TRUE(test::same_fields(ptl, sample.record));
}

TEST(H265ProfileTierLevel, ReadsTheGeneralLayerAloneWithoutSubLayers) {
    test::bit_writer bits = general_layer();
    bits.u<16>(0xFFFF);
    test::rbsp input{bits.bytes()};
    h265_profile_tier_level ptl;
    ptl.sub_layers.resize(3);
    EXPECT_TRUE(ptl.parse(true, 0, input.reader));
    EXPECT_EQ(input.reader.bit_position(), 96U);
    EXPECT_TRUE(ptl.sub_layers.empty());
    EXPECT_TRUE(ptl.general.profile_present_flag);
    EXPECT_TRUE(ptl.general.level_present_flag);
    EXPECT_TRUE(ptl.general.valid);
    EXPECT_EQ(ptl.general.level_idc, 93);
    EXPECT_TRUE(ptl.valid);
}

TEST(H265ProfileTierLevel, ReadsTheLevelAloneWithoutAProfile) {
    test::rbsp input{120, 0xFF};
    h265_profile_tier_level ptl;
    ptl.general.profile_present_flag = true;
    EXPECT_TRUE(ptl.parse(/*profilePresentFlag=*/false, 0, input.reader));
    EXPECT_EQ(input.reader.bit_position(), 8U);
    EXPECT_FALSE(ptl.general.profile_present_flag);
    EXPECT_TRUE(ptl.general.level_present_flag);
    EXPECT_TRUE(ptl.general.profile_compatibility_flag.empty());
    EXPECT_EQ(ptl.general.level_idc, 120);
}

TEST(H265ProfileTierLevel, PassesOverTwoReservedBitsForEachOfTheEightSubLayersThatIsMissing) {
    for (unsigned int count = 1; count <= 7; ++count) {
        test::bit_writer bits = general_layer();
        for (unsigned int i = 0; i < count; ++i) {
            bits.u<1>(0).u<1>(1);
        }
        bits.u(2 * (8 - count), 0x3FFF >> (2 * (count - 1)));
        for (unsigned int i = 0; i < count; ++i) {
            bits.u<8>(100 + i);
        }
        test::rbsp input{bits.bytes()};
        h265_profile_tier_level ptl;
        EXPECT_TRUE(ptl.parse(true, count, input.reader)) << count;
        EXPECT_EQ(input.reader.bit_position(), 96 + 16 + 8 * count);
        ASSERT_EQ(ptl.sub_layers.size(), count);
        for (unsigned int i = 0; i < count; ++i) {
            EXPECT_FALSE(ptl.sub_layers[i].profile_present_flag);
            EXPECT_TRUE(ptl.sub_layers[i].level_present_flag);
            EXPECT_EQ(ptl.sub_layers[i].level_idc, 100 + i);
            EXPECT_TRUE(ptl.sub_layers[i].valid);
        }
    }
}

TEST(H265ProfileTierLevel, PassesOverNothingFromEightSubLayersOn) {
    for (const unsigned int count : {8U, 9U, 127U, 128U}) {
        test::bit_writer bits = general_layer();
        for (unsigned int i = 0; i < count; ++i) {
            bits.u<1>(0).u<1>(1);
        }
        for (unsigned int i = 0; i < count; ++i) {
            bits.u<8>(100 + i);
        }
        test::rbsp input{bits.bytes()};
        h265_profile_tier_level ptl;
        EXPECT_TRUE(ptl.parse(true, count, input.reader)) << count;
        EXPECT_EQ(input.reader.bit_position(), 96 + 10 * count);
        ASSERT_EQ(ptl.sub_layers.size(), count);
        EXPECT_EQ(ptl.sub_layers.front().level_idc, 100);
        EXPECT_EQ(ptl.sub_layers.back().level_idc, 99 + count);
        EXPECT_TRUE(ptl.valid);
    }
}

TEST(H265ProfileTierLevel, RejectsMoreThan128SubLayersBehindTheGeneralLayer) {
    for (const unsigned int count : {129U, 0x7FFFFFFFU, 0x80000000U, 0xFFFFFFFFU}) {
        for (const bool valid_before : {false, true}) {
            const test::bit_writer bits = general_layer();
            test::rbsp input{bits.bytes()};
            h265_profile_tier_level ptl;
            ptl.sub_layers.resize(2);
            ptl.valid = valid_before;
            EXPECT_FALSE(ptl.parse(true, count, input.reader)) << count;
            EXPECT_EQ(input.reader.bit_position(), 96U);
            EXPECT_EQ(ptl.valid, valid_before);
            EXPECT_TRUE(ptl.general.valid);
            EXPECT_EQ(ptl.general.level_idc, 93);
            EXPECT_EQ(ptl.sub_layers.size(), 2U);
        }
    }
}

TEST(H265ProfileTierLevel, ReadsNothingOfASubLayerWithoutParts) {
    test::bit_writer bits = general_layer();
    bits.u<2>(0).u<14>(0);
    test::rbsp input{bits.bytes()};
    h265_profile_tier_level ptl;
    EXPECT_TRUE(ptl.parse(true, 1, input.reader));
    EXPECT_EQ(input.reader.bit_position(), bits.size());
    ASSERT_EQ(ptl.sub_layers.size(), 1U);
    layer_t expected;
    expected.valid = true;
    EXPECT_TRUE(test::same_fields(ptl.sub_layers[0], expected));
}

TEST(H265ProfileTierLevel, DropsAndAppendsSubLayersAndKeepsTheirAbsentParts) {
    h265_profile_tier_level ptl;
    ptl.sub_layers.resize(3);
    ptl.sub_layers[0].level_idc = 90;
    ptl.sub_layers[1].level_idc = 91;

    test::bit_writer one = general_layer();
    one.u<2>(0).u<14>(0);
    test::rbsp one_input{one.bytes()};
    EXPECT_TRUE(ptl.parse(true, 1, one_input.reader));
    ASSERT_EQ(ptl.sub_layers.size(), 1U);
    EXPECT_EQ(ptl.sub_layers[0].level_idc, 90);

    test::bit_writer two = general_layer();
    two.u<4>(0).u<12>(0);
    test::rbsp two_input{two.bytes()};
    EXPECT_TRUE(ptl.parse(true, 2, two_input.reader));
    ASSERT_EQ(ptl.sub_layers.size(), 2U);
    EXPECT_EQ(ptl.sub_layers[0].level_idc, 90);
    EXPECT_EQ(ptl.sub_layers[1].level_idc, 0);
}

TEST(H265ProfileTierLevel, BecomesValidAgain) {
    const test::bit_writer bits = general_layer();
    test::rbsp input{bits.bytes()};
    h265_profile_tier_level ptl;
    EXPECT_TRUE(ptl.parse(true, 0, input.reader));
    test::rbsp too_many{bits.bytes()};
    EXPECT_FALSE(ptl.parse(true, 129, too_many.reader));
    EXPECT_TRUE(ptl.valid);
    test::rbsp again{bits.bytes()};
    EXPECT_TRUE(ptl.parse(true, 0, again.reader));
    EXPECT_TRUE(ptl.valid);
}

TEST(H265ProfileTierLevel, ReadsZerosBehindTheEnd) {
    test::rbsp input{};
    h265_profile_tier_level ptl;
    EXPECT_TRUE(ptl.parse(true, 1, input.reader));
    EXPECT_TRUE(ptl.valid);
    EXPECT_EQ(ptl.general.profile_compatibility_flag, std::vector<bool>(32, false));
    EXPECT_EQ(ptl.sub_layers.size(), 1U);
}

}  // namespace
}  // namespace kovran
