// The standard's reading of short-term reference picture sets, beside the library's own.
#include <kovran/h265/h265_nal_sps.h>
#include <kovran/h265/h265_st_ref_pic_set.h>

#include <gtest/gtest.h>

#include <vector>

#include "support/bit_writer.h"
#include "support/rbsp.h"
#include "support/same_fields.h"

namespace kovran {
namespace {

using values = std::vector<unsigned int>;
using flags = std::vector<bool>;
using ref_pic_sets = std::vector<h265_st_ref_pic_set>;

h265_nal_sps sps_with_sets(unsigned int num_short_term_ref_pic_sets) {
    h265_nal_sps sps;
    sps.num_short_term_ref_pic_sets = num_short_term_ref_pic_sets;
    return sps;
}

// A picture as an encoder lists it.
struct picture {
    int delta_poc;
    bool used;
};

// Nearest first in each direction.
h265_st_ref_pic_set set_of(const std::vector<picture>& before, const std::vector<picture>& after) {
    h265_st_ref_pic_set set;
    int last = 0;
    for (const picture& each : before) {
        set.delta_poc_s0_minus1.push_back(static_cast<unsigned int>(last - each.delta_poc - 1));
        set.used_by_curr_pic_s0_flag.push_back(each.used);
        last = each.delta_poc;
    }
    last = 0;
    for (const picture& each : after) {
        set.delta_poc_s1_minus1.push_back(static_cast<unsigned int>(each.delta_poc - last - 1));
        set.used_by_curr_pic_s1_flag.push_back(each.used);
        last = each.delta_poc;
    }
    set.num_negative_pics = static_cast<unsigned int>(before.size());
    set.num_positive_pics = static_cast<unsigned int>(after.size());
    set.NumDeltaPocs = set.num_negative_pics + set.num_positive_pics;
    set.valid = true;
    return set;
}

enum class kept { used, unused, dropped };

// A predicted set as an SPS holds it.
test::bit_writer predicted(int deltaRps, const std::vector<kept>& entries) {
    test::bit_writer bits;
    bits.u<1>(1).u<1>(deltaRps < 0 ? 1U : 0U);
    bits.ue(static_cast<unsigned int>(deltaRps < 0 ? -deltaRps : deltaRps) - 1);
    for (const kept each : entries) {
        if (each == kept::used) {
            bits.u<1>(1);
        } else {
            bits.u<1>(0).u<1>(each == kept::unused ? 1 : 0);
        }
    }
    return bits;
}

h265_st_ref_pic_set parsed(const test::bit_writer& bits, unsigned int idx,
                           const ref_pic_sets& sets) {
    test::rbsp input{bits.bytes()};
    h265_st_ref_pic_set set;
    EXPECT_TRUE(set.parse_standard(input.reader, sps_with_sets(8), idx, sets));
    EXPECT_EQ(input.reader.bit_position(), bits.size());
    EXPECT_TRUE(set.valid);
    return set;
}

void expect_pictures(const h265_st_ref_pic_set& set, const std::vector<picture>& before,
                     const std::vector<picture>& after) {
    const h265_st_ref_pic_set expected = set_of(before, after);
    EXPECT_EQ(set.num_negative_pics, expected.num_negative_pics);
    EXPECT_EQ(set.num_positive_pics, expected.num_positive_pics);
    EXPECT_EQ(set.NumDeltaPocs, expected.NumDeltaPocs);
    EXPECT_EQ(set.delta_poc_s0_minus1, expected.delta_poc_s0_minus1);
    EXPECT_EQ(set.used_by_curr_pic_s0_flag, expected.used_by_curr_pic_s0_flag);
    EXPECT_EQ(set.delta_poc_s1_minus1, expected.delta_poc_s1_minus1);
    EXPECT_EQ(set.used_by_curr_pic_s1_flag, expected.used_by_curr_pic_s1_flag);
}

// Entries 0 to 2 are -1, -3 and 2, entry 3 the picture that the reference set belongs to.
const ref_pic_sets references = {set_of({{-1, true}, {-3, false}}, {{2, true}})};

TEST(StandardStRefPicSet, PredictsFromThePictureBefore) {
    const auto bits = predicted(-1, {kept::used, kept::dropped, kept::unused, kept::used});
    const h265_st_ref_pic_set set = parsed(bits, 1, references);
    expect_pictures(set, {{-1, true}, {-2, true}}, {{1, false}});
    EXPECT_EQ(set.deltaRps, -1);
    EXPECT_EQ(set.RefRpsIdx, 0U);
    EXPECT_EQ(set.used_by_curr_pic_flag, (flags{true, false, false, true}));
    EXPECT_EQ(set.use_delta_flag, (flags{true, false, true, true}));

    test::rbsp input{bits.bytes()};
    h265_st_ref_pic_set own;
    EXPECT_TRUE(own.parse(input.reader, sps_with_sets(8), 1, references));
    EXPECT_EQ(input.reader.bit_position(), bits.size());
    EXPECT_EQ(own.NumDeltaPocs, 0U);
    EXPECT_TRUE(own.delta_poc_s0_minus1.empty());
    EXPECT_EQ(own.use_delta_flag, set.use_delta_flag);
}

TEST(StandardStRefPicSet, DropsThePictureThatBecomesTheCurrentOne) {
    expect_pictures(
        parsed(predicted(3, {kept::used, kept::used, kept::used, kept::unused}), 1, references), {},
        {{2, true}, {3, false}, {5, true}});
    expect_pictures(
        parsed(predicted(-2, {kept::used, kept::used, kept::used, kept::used}), 1, references),
        {{-2, true}, {-3, true}, {-5, true}}, {});
}

// From pictures on both sides that change sides: 2 and 4 become -3 and -1.
TEST(StandardStRefPicSet, PutsPicturesThatChangeSidesNearestFirst) {
    const ref_pic_sets both = {set_of({{-1, true}}, {{2, false}, {4, true}, {6, true}})};
    expect_pictures(
        parsed(predicted(-5, {kept::used, kept::unused, kept::used, kept::used, kept::used}), 1,
               both),
        {{-1, true}, {-3, false}, {-5, true}, {-6, true}}, {{1, true}});
    const ref_pic_sets mirrored = {set_of({{-2, false}, {-4, true}, {-6, true}}, {{1, true}})};
    expect_pictures(
        parsed(predicted(5, {kept::unused, kept::used, kept::used, kept::used, kept::used}), 1,
               mirrored),
        {{-1, true}}, {{1, true}, {3, false}, {5, true}, {6, true}});
}

// Each has one flag pair more than the pictures of the set before it.
TEST(StandardStRefPicSet, PredictsInAChain) {
    ref_pic_sets sets = references;
    sets.push_back(
        parsed(predicted(-1, {kept::used, kept::dropped, kept::used, kept::used}), 1, sets));
    expect_pictures(sets[1], {{-1, true}, {-2, true}}, {{1, true}});
    const auto third = predicted(-1, {kept::used, kept::unused, kept::used, kept::dropped});
    sets.push_back(parsed(third, 2, sets));
    expect_pictures(sets[2], {{-2, true}, {-3, false}}, {});
    const auto fourth = predicted(1, {kept::used, kept::used, kept::used});
    expect_pictures(parsed(fourth, 3, sets), {{-1, true}, {-2, true}}, {{1, true}});

    // By the library's own rules a set predicted from a predicted one has a single pair.
    test::rbsp input{third.bytes()};
    ref_pic_sets own_sets(2);
    h265_st_ref_pic_set own;
    EXPECT_TRUE(own.parse(input.reader, sps_with_sets(8), 2, own_sets));
    EXPECT_EQ(own.used_by_curr_pic_flag.size(), 1U);
}

TEST(StandardStRefPicSet, PredictsTheSetOfASliceFromAnyOfTheSps) {
    const ref_pic_sets sets = {references[0], set_of({{-8, true}}, {})};
    // delta_idx_minus1 1: set 0.
    test::bit_writer bits;
    bits.u<1>(1).ue(1).u<1>(1).ue(0).u<1>(1).u<1>(1).u<1>(1).u<1>(1);
    test::rbsp input{bits.bytes()};
    h265_st_ref_pic_set set;
    EXPECT_TRUE(set.parse_standard(input.reader, sps_with_sets(2), 2, sets));
    EXPECT_EQ(input.reader.bit_position(), bits.size());
    EXPECT_EQ(set.RefRpsIdx, 0U);
    expect_pictures(set, {{-1, true}, {-2, true}, {-4, true}}, {{1, true}});
}

TEST(StandardStRefPicSet, KeepsWhatIsCodedOutright) {
    test::bit_writer bits;
    bits.u<1>(0).ue(1).ue(2).ue(4).u<1>(1).ue(0).u<1>(0).ue(6).u<1>(1);
    expect_pictures(parsed(bits, 1, references), {{-5, true}}, {{1, false}, {8, true}});
}

TEST(StandardStRefPicSet, ShowsNothingStale) {
    test::bit_writer outright;
    outright.u<1>(0).ue(1).ue(0).ue(0).u<1>(1);
    const auto predicted_bits = predicted(-1, {kept::used, kept::used, kept::used, kept::used});
    for (const test::bit_writer& first : {outright, predicted_bits}) {
        for (const test::bit_writer& second : {outright, predicted_bits}) {
            test::rbsp first_input{first.bytes()};
            test::rbsp second_input{second.bytes()};
            h265_st_ref_pic_set set;
            EXPECT_TRUE(set.parse_standard(first_input.reader, sps_with_sets(8), 1, references));
            EXPECT_TRUE(set.parse_standard(second_input.reader, sps_with_sets(8), 1, references));
            EXPECT_TRUE(test::same_fields(set, parsed(second, 1, references)));
        }
    }
}

// ---- Limits

bool parses(const test::bit_writer& bits, const ref_pic_sets& sets, unsigned int idx = 1) {
    test::rbsp input{bits.bytes()};
    h265_st_ref_pic_set set;
    set.valid = true;
    const bool result = set.parse_standard(input.reader, sps_with_sets(8), idx, sets);
    EXPECT_EQ(set.valid, result);
    EXPECT_LE(set.delta_poc_s0_minus1.capacity(), 32U);
    EXPECT_LE(set.use_delta_flag.capacity(), 64U);
    return result;
}

test::bit_writer with_pictures(unsigned int num_negative_pics, unsigned int num_positive_pics) {
    test::bit_writer bits;
    bits.u<1>(0).ue(num_negative_pics).ue(num_positive_pics);
    for (unsigned int i = 0; i < 40; ++i) {
        bits.ue(0).u<1>(1);
    }
    return bits;
}

TEST(StandardStRefPicSet, HasUpTo16Pictures) {
    EXPECT_TRUE(parses(with_pictures(16, 0), references));
    EXPECT_TRUE(parses(with_pictures(0, 16), references));
    EXPECT_TRUE(parses(with_pictures(7, 9), references));
    EXPECT_FALSE(parses(with_pictures(17, 0), references));
    EXPECT_FALSE(parses(with_pictures(0, 17), references));
    EXPECT_FALSE(parses(with_pictures(8, 9), references));
    // Their sum is 4 in 32 bits.
    EXPECT_FALSE(parses(with_pictures(0xFFFFFFFE, 6), references));
    EXPECT_FALSE(parses(with_pictures(6, 0xFFFFFFFE), references));

    test::rbsp input{with_pictures(8, 9).bytes()};
    h265_st_ref_pic_set own;
    EXPECT_TRUE(own.parse(input.reader, sps_with_sets(8), 1, references));
}

TEST(StandardStRefPicSet, PredictsUpTo16Pictures) {
    std::vector<picture> before;
    for (int i = 1; i <= 16; ++i) {
        before.push_back({-i, true});
    }
    const ref_pic_sets full = {set_of(before, {})};
    std::vector<kept> entries(17, kept::used);
    EXPECT_FALSE(parses(predicted(-1, entries), full));
    entries[16] = kept::dropped;
    EXPECT_TRUE(parses(predicted(-1, entries), full));
    before.push_back({-17, true});
    EXPECT_FALSE(parses(predicted(-1, std::vector<kept>(18, kept::dropped)), {set_of(before, {})}));
}

// DeltaPocS0 and DeltaPocS1 are -2^15 to 2^15 - 1.
TEST(StandardStRefPicSet, PredictsNoPictureTooFarAway) {
    const ref_pic_sets none = {set_of({}, {})};
    EXPECT_TRUE(parses(predicted(-32768, {kept::used}), none));
    EXPECT_FALSE(parses(predicted(-32769, {kept::used}), none));
    EXPECT_TRUE(parses(predicted(32767, {kept::used}), none));
    EXPECT_FALSE(parses(predicted(32768, {kept::used}), none));
    EXPECT_TRUE(parses(predicted(-32769, {kept::dropped}), none));
}

// 2^32 - 1 before and after, which 32 bits hold as 1 and -1.
TEST(StandardStRefPicSet, DoesNotWrapDistances) {
    const ref_pic_sets one = {set_of({{-1, true}}, {})};
    for (const unsigned int delta_rps_sign : {0U, 1U}) {
        test::bit_writer bits;
        bits.u<1>(1).u(1, delta_rps_sign).ue(0xFFFFFFFE).u<2>(0b11);
        EXPECT_FALSE(parses(bits, one));
    }
}

// -10 and 2^15 - 10 are in the range that the reference, 2^15, is not in.
TEST(StandardStRefPicSet, PredictsFromAPictureTooFarAway) {
    const ref_pic_sets far = {set_of({}, {{1 << 15, true}})};
    expect_pictures(parsed(predicted(-10, {kept::used, kept::used}), 1, far), {{-10, true}},
                    {{(1 << 15) - 10, true}});
    expect_pictures(parsed(predicted(1, {kept::dropped, kept::used}), 1, far), {}, {{1, true}});
    EXPECT_FALSE(parses(predicted(1, {kept::used, kept::used}), far));
}

TEST(StandardStRefPicSet, FailsWhenTheReferenceIsNotWhole) {
    const auto bits = predicted(-1, {kept::used, kept::used, kept::used, kept::used});
    EXPECT_TRUE(parses(bits, references));
    EXPECT_FALSE(parses(bits, {}));
    ref_pic_sets broken = references;
    broken[0].delta_poc_s0_minus1.pop_back();
    EXPECT_FALSE(parses(bits, broken));
    broken = references;
    broken[0].used_by_curr_pic_s1_flag.clear();
    EXPECT_FALSE(parses(bits, broken));
    broken = references;
    broken[0].NumDeltaPocs = 4;
    EXPECT_FALSE(parses(bits, broken));
    // 17 and 2^32 - 1 are 16 in 32 bits.
    std::vector<picture> before;
    for (int i = 1; i <= 17; ++i) {
        before.push_back({-i, true});
    }
    broken[0] = set_of(before, {});
    broken[0].num_positive_pics = 0xFFFFFFFF;
    broken[0].NumDeltaPocs = 16;
    EXPECT_FALSE(parses(bits, broken));
    broken = references;
    broken[0].delta_poc_s0_minus1[0] = 32768;
    EXPECT_FALSE(parses(bits, broken));
}

}  // namespace
}  // namespace kovran
