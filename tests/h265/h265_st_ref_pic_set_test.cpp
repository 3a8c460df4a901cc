#include <kovran/h265/h265_nal_sps.h>
#include <kovran/h265/h265_st_ref_pic_set.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <limits>
#include <vector>

#include "support/bit_writer.h"
#include "support/parameter_sets.h"
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

// A set to predict from, of which only the counts matter.
h265_st_ref_pic_set reference(unsigned int num_negative_pics, unsigned int num_positive_pics,
                              unsigned int NumDeltaPocs) {
    h265_st_ref_pic_set set;
    set.num_negative_pics = num_negative_pics;
    set.num_positive_pics = num_positive_pics;
    set.NumDeltaPocs = NumDeltaPocs;
    return set;
}

// A predicted set as an SPS holds it: with deltaRps 1, and `pairs` times neither flag.
test::bit_writer predicted_without_pictures(unsigned int pairs) {
    test::bit_writer bits;
    bits.u<1>(1).u<1>(0).ue(0);
    for (unsigned int j = 0; j < pairs; ++j) {
        bits.u<2>(0);
    }
    return bits;
}

// What a fresh record holds after that.
h265_st_ref_pic_set set_without_pictures(unsigned int idx, unsigned int RefRpsIdx,
                                         std::size_t pairs) {
    h265_st_ref_pic_set set;
    set.deltaRps = 1;
    set.stRpsIdx = idx;
    set.RefRpsIdx = RefRpsIdx;
    set.inter_ref_pic_set_prediction_flag = true;
    set.used_by_curr_pic_flag.assign(pairs, false);
    set.use_delta_flag.assign(pairs, false);
    set.valid = true;
    return set;
}

TEST(H265StRefPicSet, ReadsSetZeroWithoutAPredictionFlag) {
    const test::sample<h265_st_ref_pic_set> sample = test::explicit_st_ref_pic_set();
    test::rbsp input{sample.syntax.bytes()};
    h265_st_ref_pic_set set;
    set.inter_ref_pic_set_prediction_flag = true;
    EXPECT_TRUE(set.parse(input.reader, sps_with_sets(1), 0, {}));
    EXPECT_EQ(input.reader.bit_position(), sample.syntax.size());
    EXPECT_TRUE(test::same_fields(set, sample.record));
}

TEST(H265StRefPicSet, ReadsSetZeroOfASliceHeaderWithoutAPredictionFlag) {
    const test::sample<h265_st_ref_pic_set> sample = test::explicit_st_ref_pic_set();
    test::rbsp input{sample.syntax.bytes()};
    h265_st_ref_pic_set set;
    EXPECT_TRUE(set.parse(input.reader, sps_with_sets(0), 0, {}));
    EXPECT_TRUE(test::same_fields(set, sample.record));
}

TEST(H265StRefPicSet, ReadsAFurtherSetThatIsCodedOutright) {
    test::bit_writer bits;
    bits.u<1>(0).ue(0).ue(2);
    bits.ue(0xFFFFFFFE).u<1>(0).ue(9).u<1>(1);
    test::rbsp input{bits.bytes()};
    h265_st_ref_pic_set set;
    EXPECT_TRUE(set.parse(input.reader, sps_with_sets(8), 5, {}));
    EXPECT_EQ(input.reader.bit_position(), bits.size());

    h265_st_ref_pic_set expected;
    expected.stRpsIdx = 5;
    expected.RefRpsIdx = 5;
    expected.NumDeltaPocs = 2;
    expected.num_positive_pics = 2;
    expected.delta_poc_s1_minus1 = {0xFFFFFFFE, 9};
    expected.used_by_curr_pic_s1_flag = {false, true};
    expected.valid = true;
    EXPECT_TRUE(test::same_fields(set, expected));
}

TEST(H265StRefPicSet, ReadsASetWithoutPictures) {
    test::rbsp input{0b1'1'000000};
    h265_st_ref_pic_set set;
    EXPECT_TRUE(set.parse(input.reader, sps_with_sets(1), 0, {}));
    EXPECT_EQ(input.reader.bit_position(), 2U);
    h265_st_ref_pic_set expected;
    expected.valid = true;
    EXPECT_TRUE(test::same_fields(set, expected));
}

TEST(H265StRefPicSet, ReadsUpTo128PicturesOfEitherKind) {
    test::bit_writer bits;
    bits.ue(128).ue(128);
    for (unsigned int i = 0; i < 256; ++i) {
        bits.ue(i).u<1>(i % 2);
    }
    test::rbsp input{bits.bytes()};
    h265_st_ref_pic_set set;
    EXPECT_TRUE(set.parse(input.reader, sps_with_sets(1), 0, {}));
    EXPECT_EQ(input.reader.bit_position(), bits.size());
    EXPECT_EQ(set.NumDeltaPocs, 256U);
    ASSERT_EQ(set.delta_poc_s0_minus1.size(), 128U);
    ASSERT_EQ(set.delta_poc_s1_minus1.size(), 128U);
    EXPECT_EQ(set.delta_poc_s0_minus1.back(), 127U);
    EXPECT_EQ(set.delta_poc_s1_minus1.front(), 128U);
    EXPECT_EQ(set.delta_poc_s1_minus1.back(), 255U);
    EXPECT_EQ(set.used_by_curr_pic_s0_flag.size(), 128U);
    EXPECT_EQ(set.used_by_curr_pic_s1_flag.size(), 128U);
    EXPECT_TRUE(set.used_by_curr_pic_s1_flag.back());
}

TEST(H265StRefPicSet, RejectsMoreThan128NegativePicturesBeforeReadingThem) {
    for (const unsigned int num_negative_pics : {129U, 0xFFFFFFFEU}) {
        test::bit_writer bits;
        bits.ue(num_negative_pics).ue(3);
        const std::size_t read = bits.size();
        bits.u<32>(0xFFFFFFFF);
        test::rbsp input{bits.bytes()};
        h265_st_ref_pic_set set;
        set.NumDeltaPocs = 9;
        set.delta_poc_s0_minus1 = {8, 7};
        set.valid = true;
        EXPECT_FALSE(set.parse(input.reader, sps_with_sets(1), 0, {}));
        EXPECT_EQ(input.reader.bit_position(), read);

        h265_st_ref_pic_set expected;
        expected.num_negative_pics = num_negative_pics;
        expected.num_positive_pics = 3;
        expected.delta_poc_s0_minus1 = {8, 7};
        EXPECT_TRUE(test::same_fields(set, expected));
    }
}

TEST(H265StRefPicSet, RejectsMoreThan128PositivePicturesBehindTheNegativeOnes) {
    for (const unsigned int num_positive_pics : {129U, 0xFFFFFFFEU}) {
        test::bit_writer bits;
        bits.ue(1).ue(num_positive_pics);
        bits.ue(6).u<1>(1);
        const std::size_t read = bits.size();
        bits.u<32>(0xFFFFFFFF);
        test::rbsp input{bits.bytes()};
        h265_st_ref_pic_set set;
        EXPECT_FALSE(set.parse(input.reader, sps_with_sets(1), 0, {}));
        EXPECT_EQ(input.reader.bit_position(), read);

        h265_st_ref_pic_set expected;
        expected.num_negative_pics = 1;
        expected.num_positive_pics = num_positive_pics;
        expected.delta_poc_s0_minus1 = {6};
        expected.used_by_curr_pic_s0_flag = {true};
        EXPECT_TRUE(test::same_fields(set, expected));
    }
}

TEST(H265StRefPicSet, ReadsAPredictedSetOfAnSps) {
    const test::sample<h265_st_ref_pic_set> sample = test::predicted_st_ref_pic_set();
    test::rbsp input{sample.syntax.bytes()};
    h265_st_ref_pic_set set;
    EXPECT_TRUE(set.parse(input.reader, sps_with_sets(2), 1, {reference(2, 1, 3)}));
    EXPECT_EQ(input.reader.bit_position(), sample.syntax.size());
    EXPECT_TRUE(test::same_fields(set, sample.record));
}

TEST(H265StRefPicSet, PredictsFromTheSetBeforeItInAnSps) {
    const ref_pic_sets sets = {reference(0, 0, 0), reference(1, 0, 1), reference(0, 2, 2),
                               reference(2, 1, 3)};
    for (unsigned int idx = 1; idx < 4; ++idx) {
        const test::bit_writer bits = predicted_without_pictures(idx);
        test::rbsp input{bits.bytes()};
        h265_st_ref_pic_set set;
        set.delta_idx_minus1 = 77;
        EXPECT_TRUE(set.parse(input.reader, sps_with_sets(4), idx, sets));
        EXPECT_EQ(input.reader.bit_position(), bits.size());
        EXPECT_TRUE(test::same_fields(set, set_without_pictures(idx, idx - 1, idx)));
    }
}

TEST(H265StRefPicSet, PredictsFromAnySetInASliceHeader) {
    const ref_pic_sets sets = {reference(0, 1, 1), reference(1, 1, 2), reference(2, 1, 3)};
    for (unsigned int delta_idx_minus1 = 0; delta_idx_minus1 < 3; ++delta_idx_minus1) {
        test::bit_writer bits;
        bits.u<1>(1).ue(delta_idx_minus1).u<1>(0).ue(0);
        const unsigned int RefRpsIdx = 2 - delta_idx_minus1;
        const unsigned int pairs = RefRpsIdx + 2;
        bits.u(2 * pairs, 0);
        test::rbsp input{bits.bytes()};
        h265_st_ref_pic_set set;
        EXPECT_TRUE(set.parse(input.reader, sps_with_sets(3), 3, sets));
        EXPECT_EQ(input.reader.bit_position(), bits.size());
        h265_st_ref_pic_set expected = set_without_pictures(3, RefRpsIdx, pairs);
        expected.delta_idx_minus1 = delta_idx_minus1;
        EXPECT_TRUE(test::same_fields(set, expected));
    }
}

TEST(H265StRefPicSet, RejectsAReferenceBeforeTheFirstSet) {
    for (const unsigned int delta_idx_minus1 : {3U, 4U, 0xFFFFFFFEU}) {
        test::bit_writer bits;
        bits.u<1>(1).ue(delta_idx_minus1).u<1>(1).ue(4);
        const std::size_t read = bits.size();
        bits.u<32>(0xFFFFFFFF);
        test::rbsp input{bits.bytes()};
        h265_st_ref_pic_set set = reference(5, 6, 7);
        set.valid = true;
        EXPECT_FALSE(set.parse(input.reader, sps_with_sets(3), 3, ref_pic_sets(3)));
        EXPECT_EQ(input.reader.bit_position(), read);

        h265_st_ref_pic_set expected = reference(5, 6, 0);
        expected.stRpsIdx = 3;
        expected.RefRpsIdx = 2U - delta_idx_minus1;
        expected.inter_ref_pic_set_prediction_flag = true;
        expected.delta_idx_minus1 = delta_idx_minus1;
        expected.delta_rps_sign = true;
        expected.abs_delta_rps_minus1 = 4;
        expected.deltaRps = -5;
        EXPECT_TRUE(test::same_fields(set, expected)) << delta_idx_minus1;
    }
}

TEST(H265StRefPicSet, LooksForItsReferenceAmongTheSetsThatThereAre) {
    const ref_pic_sets one = {reference(0, 0, 0)};
    test::bit_writer last;
    last.u<1>(1).ue(0).u<1>(0).ue(0).u<2>(0);
    test::rbsp last_input{last.bytes()};
    h265_st_ref_pic_set set;
    EXPECT_FALSE(set.parse(last_input.reader, sps_with_sets(3), 3, one));
    EXPECT_EQ(set.RefRpsIdx, 2U);

    test::bit_writer second;
    second.u<1>(1).ue(1).u<1>(0).ue(0).u<2>(0);
    test::rbsp second_input{second.bytes()};
    EXPECT_FALSE(set.parse(second_input.reader, sps_with_sets(3), 3, one));
    EXPECT_EQ(set.RefRpsIdx, 1U);

    test::bit_writer first;
    first.u<1>(1).ue(2).u<1>(0).ue(0).u<2>(0);
    test::rbsp first_input{first.bytes()};
    EXPECT_TRUE(set.parse(first_input.reader, sps_with_sets(3), 3, one));
    EXPECT_EQ(set.RefRpsIdx, 0U);

    const test::bit_writer in_sps = predicted_without_pictures(1);
    test::rbsp in_sps_input{in_sps.bytes()};
    EXPECT_FALSE(set.parse(in_sps_input.reader, sps_with_sets(3), 1, {}));
}

TEST(H265StRefPicSet, MayLieBeyondTheSetsOfTheSps) {
    ref_pic_sets sets(6);
    sets[4] = reference(1, 0, 1);
    const test::bit_writer bits = predicted_without_pictures(2);
    test::rbsp input{bits.bytes()};
    h265_st_ref_pic_set set;
    EXPECT_TRUE(set.parse(input.reader, sps_with_sets(2), 5, sets));
    EXPECT_EQ(input.reader.bit_position(), bits.size());
    EXPECT_TRUE(test::same_fields(set, set_without_pictures(5, 4, 2)));
}

TEST(H265StRefPicSet, ReadsUseDeltaFlagOnlyOfPicturesThatAreNotUsed) {
    test::bit_writer bits;
    bits.u<1>(1).u<1>(0).ue(0);
    bits.u<1>(1);
    bits.u<1>(1);
    bits.u<1>(0).u<1>(1);
    test::rbsp input{bits.bytes()};
    h265_st_ref_pic_set set;
    EXPECT_TRUE(set.parse(input.reader, sps_with_sets(2), 1, {reference(1, 1, 2)}));
    EXPECT_EQ(input.reader.bit_position(), bits.size());
    EXPECT_EQ(set.used_by_curr_pic_flag, flags({true, true, false}));
    EXPECT_EQ(set.use_delta_flag, flags({true, true, true}));
}

TEST(H265StRefPicSet, ReadsOnePairWhenPredictedFromAPredictedSet) {
    const test::sample<h265_st_ref_pic_set> first = test::explicit_st_ref_pic_set();
    const test::sample<h265_st_ref_pic_set> second = test::predicted_st_ref_pic_set();
    const test::bit_writer third = predicted_without_pictures(1);
    ref_pic_sets sets(3);
    const h265_nal_sps sps = sps_with_sets(3);
    test::rbsp first_input{first.syntax.bytes()};
    EXPECT_TRUE(sets[0].parse(first_input.reader, sps, 0, sets));
    test::rbsp second_input{second.syntax.bytes()};
    EXPECT_TRUE(sets[1].parse(second_input.reader, sps, 1, sets));
    test::rbsp third_input{third.bytes()};
    EXPECT_TRUE(sets[2].parse(third_input.reader, sps, 2, sets));
    EXPECT_EQ(third_input.reader.bit_position(), third.size());

    EXPECT_TRUE(test::same_fields(sets[0], first.record));
    EXPECT_TRUE(test::same_fields(sets[1], second.record));
    EXPECT_TRUE(test::same_fields(sets[2], set_without_pictures(2, 1, 1)));
}

TEST(H265StRefPicSet, FormsDeltaRpsOfItsSignAndMagnitude) {
    constexpr int smallest = std::numeric_limits<int>::min();
    constexpr int largest = std::numeric_limits<int>::max();
    const struct {
        bool delta_rps_sign;
        unsigned int abs_delta_rps_minus1;
        int deltaRps;
    } cases[] = {
        {false, 0, 1},
        {true, 0, -1},
        {false, 0x7FFE, 0x7FFF},
        {true, 0x7FFF, -0x8000},
        {false, 0x7FFFFFFE, largest},
        {true, 0x7FFFFFFE, -largest},
        {false, 0x7FFFFFFF, smallest},
        {true, 0x7FFFFFFF, smallest},
        {false, 0xFFFFFFFE, -1},
        {true, 0xFFFFFFFE, 1},
    };
    for (const auto& each : cases) {
        test::bit_writer bits;
        bits.u<1>(1).u<1>(each.delta_rps_sign).ue(each.abs_delta_rps_minus1).u<2>(0);
        test::rbsp input{bits.bytes()};
        h265_st_ref_pic_set set;
        EXPECT_TRUE(set.parse(input.reader, sps_with_sets(2), 1, ref_pic_sets(1)));
        EXPECT_EQ(input.reader.bit_position(), bits.size());
        EXPECT_EQ(set.delta_rps_sign, each.delta_rps_sign);
        EXPECT_EQ(set.abs_delta_rps_minus1, each.abs_delta_rps_minus1);
        EXPECT_EQ(set.deltaRps, each.deltaRps);
    }
}

TEST(H265StRefPicSet, ReadsUpTo128PairsForAReferenceOf127Pictures) {
    const test::bit_writer bits = predicted_without_pictures(128);
    test::rbsp input{bits.bytes()};
    h265_st_ref_pic_set set;
    EXPECT_TRUE(set.parse(input.reader, sps_with_sets(2), 1, {reference(100, 27, 127)}));
    EXPECT_EQ(input.reader.bit_position(), bits.size());
    EXPECT_TRUE(test::same_fields(set, set_without_pictures(1, 0, 128)));
}

TEST(H265StRefPicSet, RejectsAReferenceOf128PicturesAndHoldsItsCount) {
    for (const unsigned int NumDeltaPocs : {128U, 256U, 0xFFFFFFFFU}) {
        test::bit_writer bits;
        bits.u<1>(1).u<1>(0).ue(0);
        const std::size_t read = bits.size();
        bits.u<32>(0xFFFFFFFF);
        test::rbsp input{bits.bytes()};
        h265_st_ref_pic_set set = reference(3, 4, 7);
        set.used_by_curr_pic_flag = {true};
        set.valid = true;
        EXPECT_FALSE(
            set.parse(input.reader, sps_with_sets(2), 1, {reference(64, 64, NumDeltaPocs)}));
        EXPECT_EQ(input.reader.bit_position(), read);

        h265_st_ref_pic_set expected = set_without_pictures(1, 0, 0);
        expected.NumDeltaPocs = NumDeltaPocs;
        expected.used_by_curr_pic_flag = {true};
        expected.valid = false;
        EXPECT_TRUE(test::same_fields(set, expected)) << NumDeltaPocs;
    }
}

TEST(H265StRefPicSet, RejectsAReferenceWithMorePicturesThanItsCount) {
    test::bit_writer bits;
    bits.u<1>(1).u<1>(0).ue(0).u<32>(0xFFFFFFFF);
    test::rbsp input{bits.bytes()};
    h265_st_ref_pic_set set = reference(3, 4, 7);
    EXPECT_FALSE(set.parse(input.reader, sps_with_sets(2), 1, {reference(2, 3, 4)}));
    EXPECT_FALSE(set.valid);
    EXPECT_EQ(set.NumDeltaPocs, 4U);
    EXPECT_EQ(set.num_negative_pics, 0U);
    EXPECT_EQ(set.num_positive_pics, 0U);
    EXPECT_TRUE(set.use_delta_flag.empty());
}

TEST(H265StRefPicSet, AcceptsAReferenceWithFewerPicturesThanItsCount) {
    const test::bit_writer bits = predicted_without_pictures(6);
    test::rbsp input{bits.bytes()};
    h265_st_ref_pic_set set;
    EXPECT_TRUE(set.parse(input.reader, sps_with_sets(2), 1, {reference(2, 2, 5)}));
    EXPECT_EQ(input.reader.bit_position(), bits.size());
}

TEST(H265StRefPicSet, MayBePredictedFromASetThatIsNotValid) {
    const test::bit_writer bits = predicted_without_pictures(2);
    test::rbsp input{bits.bytes()};
    ref_pic_sets sets = {reference(1, 0, 1)};
    EXPECT_FALSE(sets[0].valid);
    h265_st_ref_pic_set set;
    EXPECT_TRUE(set.parse(input.reader, sps_with_sets(2), 1, sets));
}

TEST(H265StRefPicSet, MayBeItsOwnReferenceWhichThenHasNoPictures) {
    const test::bit_writer bits = predicted_without_pictures(1);
    test::rbsp input{bits.bytes()};
    ref_pic_sets sets = {reference(2, 1, 3)};
    EXPECT_TRUE(sets[0].parse(input.reader, sps_with_sets(2), 1, sets));
    EXPECT_EQ(input.reader.bit_position(), bits.size());
    EXPECT_TRUE(test::same_fields(sets[0], set_without_pictures(1, 0, 1)));
}

TEST(H265StRefPicSet, KeepsTheVectorsOfTheOtherCoding) {
    const test::sample<h265_st_ref_pic_set> outright = test::explicit_st_ref_pic_set();
    const test::sample<h265_st_ref_pic_set> predicted = test::predicted_st_ref_pic_set();
    const h265_nal_sps sps = sps_with_sets(2);

    h265_st_ref_pic_set set = outright.record;
    test::rbsp predicted_input{predicted.syntax.bytes()};
    EXPECT_TRUE(set.parse(predicted_input.reader, sps, 1, {reference(2, 1, 3)}));
    h265_st_ref_pic_set expected = predicted.record;
    expected.delta_poc_s0_minus1 = outright.record.delta_poc_s0_minus1;
    expected.used_by_curr_pic_s0_flag = outright.record.used_by_curr_pic_s0_flag;
    expected.delta_poc_s1_minus1 = outright.record.delta_poc_s1_minus1;
    expected.used_by_curr_pic_s1_flag = outright.record.used_by_curr_pic_s1_flag;
    EXPECT_TRUE(test::same_fields(set, expected));

    test::rbsp none{0b1'1'000000};
    EXPECT_TRUE(set.parse(none.reader, sps, 0, {}));
    expected.stRpsIdx = 0;
    expected.inter_ref_pic_set_prediction_flag = false;
    expected.delta_poc_s0_minus1.clear();
    expected.used_by_curr_pic_s0_flag.clear();
    expected.delta_poc_s1_minus1.clear();
    expected.used_by_curr_pic_s1_flag.clear();
    EXPECT_TRUE(test::same_fields(set, expected));
}

TEST(H265StRefPicSet, OverwritesTheFlagsOfAnEarlierPrediction) {
    h265_st_ref_pic_set set;
    set.used_by_curr_pic_flag.assign(9, true);
    set.use_delta_flag.assign(9, true);
    const test::bit_writer bits = predicted_without_pictures(3);
    test::rbsp input{bits.bytes()};
    EXPECT_TRUE(set.parse(input.reader, sps_with_sets(2), 1, {reference(1, 1, 2)}));
    EXPECT_TRUE(test::same_fields(set, set_without_pictures(1, 0, 3)));
}

}  // namespace
}  // namespace kovran
