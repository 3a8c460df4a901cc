#include <kovran/h265/sei/h265_nal_sei_film_grain_characteristics.h>

#include <array>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/allocation_failure.h"
#include "support/rbsp.h"
#include "support/sei_payload.h"
#include "support/sei_record_parsing.h"

namespace kovran {
namespace {

TEST(H265NalSeiFilmGrainCharacteristics, ModelsComponents) {
    const auto grain = test::record_of<h265_nal_sei_film_grain_characteristics>(
        "0 01 1  010 001 1 x09 x10 x0a  01 0110  1 0 1"
        "00000001 001  x0a x64 00110 011  x65 xff 1 00100"
        "00000000 101  x00 xff 1 010 1 011 1 1  1",
        "film_grain_characteristics_cancel_flag 0\n"
        "film_grain_model_id 1\n"
        "separate_colour_description_present_flag 1\n"
        "film_grain_bit_depth_luma_minus8 2\n"
        "film_grain_bit_depth_chroma_minus8 1\n"
        "film_grain_full_range_flag 1\n"
        "film_grain_colour_primaries 9\n"
        "film_grain_transfer_characteristics 16\n"
        "film_grain_matrix_coeffs 10\n"
        "blending_mode_id 1\n"
        "log2_scale_factor 6\n"
        "comp_model_present_flag[0] 1\n"
        "comp_model_present_flag[1] 0\n"
        "comp_model_present_flag[2] 1\n"
        "num_intensity_intervals_minus1[0] 1\n"
        "num_model_values_minus1[0] 1\n"
        "intensity_interval_lower_bound[0][0] 10\n"
        "intensity_interval_upper_bound[0][0] 100\n"
        "comp_model_value[0][0][0] 3\n"
        "comp_model_value[0][0][1] -1\n"
        "intensity_interval_lower_bound[0][1] 101\n"
        "intensity_interval_upper_bound[0][1] 255\n"
        "comp_model_value[0][1][0] 0\n"
        "comp_model_value[0][1][1] 2\n"
        "num_intensity_intervals_minus1[2] 0\n"
        "num_model_values_minus1[2] 5\n"
        "intensity_interval_lower_bound[2][0] 0\n"
        "intensity_interval_upper_bound[2][0] 255\n"
        "comp_model_value[2][0][0] 0\n"
        "comp_model_value[2][0][1] 1\n"
        "comp_model_value[2][0][2] 0\n"
        "comp_model_value[2][0][3] -1\n"
        "comp_model_value[2][0][4] 0\n"
        "comp_model_value[2][0][5] 0\n"
        "film_grain_characteristics_persistence_flag 1\n");
    EXPECT_EQ(grain.film_grain_model_id, 1);
    EXPECT_EQ(grain.film_grain_bit_depth_luma_minus8, 2);
    EXPECT_EQ(grain.film_grain_bit_depth_chroma_minus8, 1);
    EXPECT_EQ(grain.film_grain_transfer_characteristics, 16);
    EXPECT_EQ(grain.log2_scale_factor, 6);
    EXPECT_TRUE(grain.components[1].intensity_intervals.empty());
    ASSERT_EQ(grain.components[0].intensity_intervals.size(), 2U);
    EXPECT_EQ(grain.components[0].intensity_intervals[1].intensity_interval_lower_bound, 101);
    EXPECT_EQ(grain.components[0].intensity_intervals[0].comp_model_value,
              (std::array<int, 6>{3, -1}));
    ASSERT_EQ(grain.components[2].intensity_intervals.size(), 1U);
    EXPECT_EQ(grain.components[2].intensity_intervals[0].comp_model_value,
              (std::array<int, 6>{0, 1, 0, -1, 0, 0}));
    EXPECT_TRUE(grain.film_grain_characteristics_persistence_flag);
}

TEST(H265NalSeiFilmGrainCharacteristics, MayModelNothing) {
    const auto grain = test::record_of<h265_nal_sei_film_grain_characteristics>(  //
        "0 00 0 10 1111 000 0",                                                   //
        "film_grain_characteristics_cancel_flag 0\n"
        "film_grain_model_id 0\n"
        "separate_colour_description_present_flag 0\n"
        "blending_mode_id 2\n"
        "log2_scale_factor 15\n"
        "comp_model_present_flag[0] 0\n"
        "comp_model_present_flag[1] 0\n"
        "comp_model_present_flag[2] 0\n"
        "film_grain_characteristics_persistence_flag 0\n");
    EXPECT_EQ(grain.blending_mode_id, 2);
}

TEST(H265NalSeiFilmGrainCharacteristics, EndsWhereItCancels) {
    const auto grain = test::record_of<h265_nal_sei_film_grain_characteristics>(
        "1", "film_grain_characteristics_cancel_flag 1\n");
    EXPECT_TRUE(grain.film_grain_characteristics_cancel_flag);
}

TEST(H265NalSeiFilmGrainCharacteristics, HasAtMostSixModelValues) {
    EXPECT_EQ(test::refusal_of(19, "0 00 0 00 0000 100 00000000 110 x00x00 1111111 0"),
              "num_model_values_minus1[0] at bit 37 is 6; allowed: 0 to 5");
}

TEST(H265NalSeiFilmGrainCharacteristics, HasNoMoreIntervalsThanTheDataHolds) {
    EXPECT_EQ(test::refusal_of(19, "0 00 0 00 0000 100 11111111 000 x00x00x00"),
              "num_intensity_intervals_minus1[0] at bit 29 is 255; allowed: 0");
}

// An interval has two bounds and one value of a bit at the least; the persistence flag follows.
TEST(H265NalSeiFilmGrainCharacteristics, HasAsManyIntervalsAsTheDataHolds) {
    std::string bits = "0 00 0 00 0000 100 00001111 000";
    for (int i = 0; i < 16; ++i) {
        bits += "x00 xff 1";
    }
    const auto grain =
        test::parsed_alone<h265_nal_sei_film_grain_characteristics>(bits + "1").record;
    EXPECT_EQ(grain.components[0].intensity_intervals.size(), 16U);
    EXPECT_TRUE(grain.film_grain_characteristics_persistence_flag);
}

// Streams have this message with every picture.
TEST(H265NalSeiFilmGrainCharacteristics, IsReadAgainWithoutAllocating) {
    const std::vector<unsigned char> payload =
        test::bytes_of("0 00 0 00 0000 010 00000001 001 x01 x02 1 1 x03 x04 1 1 1");
    h265_nal_sei_film_grain_characteristics grain;
    test::rbsp first(payload);
    ASSERT_TRUE(grain.parse_standard(first.reader));
    test::rbsp second(payload);
    const test::allocation_count before;
    EXPECT_TRUE(grain.parse_standard(second.reader));
    EXPECT_EQ(before.bytes(), 0U);
}

TEST(H265NalSeiFilmGrainCharacteristics, IsParsedAlone) {
    const auto grain = test::parsed_alone<h265_nal_sei_film_grain_characteristics>(
                           "0 00 0 00 0000 010 00000000 000 x01 x02 00111 1")
                           .record;
    ASSERT_EQ(grain.components[1].intensity_intervals.size(), 1U);
    EXPECT_EQ(grain.components[1].intensity_intervals[0].intensity_interval_upper_bound, 2);
    EXPECT_EQ(grain.components[1].intensity_intervals[0].comp_model_value,
              (std::array<int, 6>{-3}));
}

TEST(H265NalSeiFilmGrainCharacteristics, NamesModelsAndBlendingModes) {
    EXPECT_STREQ(h265_nal_sei_film_grain_model_id_to_str(0), "frequency filtering");
    EXPECT_STREQ(h265_nal_sei_film_grain_model_id_to_str(1), "auto-regression");
    EXPECT_STREQ(h265_nal_sei_film_grain_model_id_to_str(2), "");
    EXPECT_STREQ(h265_nal_sei_film_grain_blending_mode_id_to_str(0), "additive");
    EXPECT_STREQ(h265_nal_sei_film_grain_blending_mode_id_to_str(1), "multiplicative");
    EXPECT_STREQ(h265_nal_sei_film_grain_blending_mode_id_to_str(2), "");
}

}  // namespace
}  // namespace kovran
