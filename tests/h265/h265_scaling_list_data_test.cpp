#include <kovran/h265/h265_scaling_list_data.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <utility>
#include <vector>

#include "support/bit_writer.h"
#include "support/parameter_sets.h"
#include "support/rbsp.h"
#include "support/same_fields.h"

namespace kovran {
namespace {

using deltas = std::vector<int>;

// The matrices in coded order, by sizeId and matrixId.
std::vector<std::pair<std::size_t, std::size_t>> coded_matrices() {
    std::vector<std::pair<std::size_t, std::size_t>> matrices;
    for (std::size_t sizeId = 0; sizeId < 3; ++sizeId) {
        for (std::size_t matrixId = 0; matrixId < 6; ++matrixId) {
            matrices.emplace_back(sizeId, matrixId);
        }
    }
    matrices.emplace_back(3, 0);
    matrices.emplace_back(3, 3);
    return matrices;
}

// All matrices predicted with a delta of 0, but for one, which is written as given.
test::bit_writer with_matrix(std::size_t sizeId, std::size_t matrixId,
                             const test::bit_writer& matrix) {
    test::bit_writer bits;
    for (const auto& coded : coded_matrices()) {
        if (coded == std::make_pair(sizeId, matrixId)) {
            test::append(bits, matrix);
        } else {
            bits.u<1>(0).ue(0);
        }
    }
    return bits;
}

// scaling_list_pred_mode_flag of 1, and scaling_list_delta_coef; the rest of `count` are 0.
test::bit_writer explicit_matrix(const deltas& first, std::size_t count) {
    test::bit_writer bits;
    bits.u<1>(1);
    for (std::size_t i = 0; i < count; ++i) {
        bits.se(i < first.size() ? first[i] : 0);
    }
    return bits;
}

// The same with scaling_list_dc_coef_minus8.
test::bit_writer explicit_matrix_with_dc(int dc, const deltas& first) {
    test::bit_writer bits;
    bits.u<1>(1).se(dc);
    for (std::size_t i = 0; i < 64; ++i) {
        bits.se(i < first.size() ? first[i] : 0);
    }
    return bits;
}

h265_scaling_list_data parsed(const test::bit_writer& bits) {
    test::rbsp input{bits.bytes()};
    h265_scaling_list_data lists;
    EXPECT_TRUE(lists.parse(input.reader));
    EXPECT_EQ(input.reader.bit_position(), bits.size());
    EXPECT_TRUE(lists.valid);
    return lists;
}

// What a fresh record holds after all matrices were predicted with a delta of 0.
h265_scaling_list_data all_predicted() {
    h265_scaling_list_data lists;
    lists.scaling_list_pred_mode_flag.assign(4, std::vector<bool>(6));
    lists.scaling_list_pred_matrix_id_delta.assign(4, std::vector<unsigned int>(6));
    lists.scaling_list_dc_coef_minus8.assign(2, std::vector<int>(6));
    lists.ScalingList.assign(4, std::vector<std::vector<int>>(6));
    lists.valid = true;
    return lists;
}

TEST(H265ScalingListData, ReadsPredictedAndExplicitMatrices) {
    const test::sample<h265_scaling_list_data> sample = test::full_scaling_list_data();
    EXPECT_TRUE(test::same_fields(parsed(sample.syntax), sample.record));
}

TEST(H265ScalingListData, ReadsTwentyDeltasWhenAllArePredicted) {
    test::bit_writer bits;
    h265_scaling_list_data expected = all_predicted();
    unsigned int delta = 0;
    for (const auto& [sizeId, matrixId] : coded_matrices()) {
        ++delta;
        bits.u<1>(0).ue(delta);
        expected.scaling_list_pred_matrix_id_delta[sizeId][matrixId] = delta;
    }
    EXPECT_EQ(delta, 20U);
    EXPECT_TRUE(test::same_fields(parsed(bits), expected));
}

TEST(H265ScalingListData, ReadsSixteenOrSixtyFourCoefficients) {
    for (const auto& [sizeId, matrixId] : coded_matrices()) {
        const std::size_t count = sizeId == 0 ? 16 : 64;
        test::bit_writer matrix;
        matrix.u<1>(1);
        if (sizeId > 1) {
            matrix.se(0);
        }
        std::vector<int> coefficients;
        for (std::size_t i = 0; i < count; ++i) {
            matrix.se(1);
            coefficients.push_back(9 + static_cast<int>(i));
        }
        h265_scaling_list_data expected = all_predicted();
        expected.scaling_list_pred_mode_flag[sizeId][matrixId] = true;
        expected.ScalingList[sizeId][matrixId] = coefficients;
        EXPECT_TRUE(test::same_fields(parsed(with_matrix(sizeId, matrixId, matrix)), expected))
            << sizeId << ", " << matrixId;
    }
}

TEST(H265ScalingListData, ReadsADcCoefficientForTheTwoLargeSizes) {
    const std::vector<std::pair<std::size_t, std::size_t>> large = {{2, 0}, {2, 5}, {3, 0}, {3, 3}};
    for (const auto& [sizeId, matrixId] : large) {
        const h265_scaling_list_data lists =
            parsed(with_matrix(sizeId, matrixId, explicit_matrix_with_dc(20, {2, -1})));
        EXPECT_EQ(lists.scaling_list_dc_coef_minus8[sizeId - 2][matrixId], 20);
        const std::vector<int>& list = lists.ScalingList[sizeId][matrixId];
        ASSERT_EQ(list.size(), 64U);
        EXPECT_EQ(list[0], 30);
        EXPECT_EQ(list[1], 29);
        EXPECT_EQ(list[63], 29);
    }
}

TEST(H265ScalingListData, StartsAtZeroWithADcCoefficientOfMinusEight) {
    const h265_scaling_list_data lists =
        parsed(with_matrix(2, 1, explicit_matrix_with_dc(-8, {0, 3})));
    EXPECT_EQ(lists.scaling_list_dc_coef_minus8[0][1], -8);
    EXPECT_EQ(lists.ScalingList[2][1][0], 0);
    EXPECT_EQ(lists.ScalingList[2][1][1], 3);
}

TEST(H265ScalingListData, StoresADcCoefficientAsReadAndStartsFromItsLowByte) {
    const std::vector<std::pair<int, int>> starts = {
        {-9, 255}, {247, 255}, {248, 0}, {1000, 240}, {0x7FFFFFFF, 7}, {-0x7FFFFFFF, 9}};
    for (const auto& [dc, start] : starts) {
        const h265_scaling_list_data lists =
            parsed(with_matrix(3, 3, explicit_matrix_with_dc(dc, {})));
        EXPECT_EQ(lists.scaling_list_dc_coef_minus8[1][3], dc);
        EXPECT_EQ(lists.ScalingList[3][3], std::vector<int>(64, start)) << dc;
    }
}

TEST(H265ScalingListData, WrapsCoefficientsAt256) {
    const h265_scaling_list_data lists =
        parsed(with_matrix(0, 0, explicit_matrix({-9, 1, 127, 127, 1, 1, -1, -128, -128}, 16)));
    const std::vector<int> expected = {255, 0,   127, 254, 255, 0,   255, 127,
                                       255, 255, 255, 255, 255, 255, 255, 255};
    EXPECT_EQ(lists.ScalingList[0][0], expected);
}

TEST(H265ScalingListData, TakesDeltasOfAnySize) {
    // From 8: + 0x7FFFFFFF leaves 0x07 of 0x80000007, - 0x7FFFFFFF then leaves 0x08 of 0x80000008.
    const h265_scaling_list_data lists = parsed(with_matrix(
        0, 5,
        explicit_matrix({0x7FFFFFFF, -0x7FFFFFFF, 256, -256, 0x7FFFFF00, -0x7FFFFF01, 1000}, 16)));
    const std::vector<int> expected = {7,   8,   8,   8,   8,   7,   239, 239,
                                       239, 239, 239, 239, 239, 239, 239, 239};
    EXPECT_EQ(lists.ScalingList[0][5], expected);
}

TEST(H265ScalingListData, TakesAnyPredictionDelta) {
    test::bit_writer matrix;
    matrix.u<1>(0).ue(0xFFFFFFFE);
    const h265_scaling_list_data lists = parsed(with_matrix(1, 4, matrix));
    EXPECT_EQ(lists.scaling_list_pred_matrix_id_delta[1][4], 0xFFFFFFFEU);
    EXPECT_TRUE(lists.ScalingList[1][4].empty());
}

TEST(H265ScalingListData, KeepsWhatIsNotCodedThisTime) {
    test::bit_writer all_explicit;
    for (const auto& coded : coded_matrices()) {
        test::append(all_explicit, coded.first > 1
                                       ? explicit_matrix_with_dc(50, {})
                                       : explicit_matrix({}, coded.first == 0 ? 16 : 64));
    }
    h265_scaling_list_data lists = parsed(all_explicit);

    test::bit_writer predicted;
    for (std::size_t i = 0; i < coded_matrices().size(); ++i) {
        predicted.u<1>(0).ue(7);
    }
    test::rbsp input{predicted.bytes()};
    EXPECT_TRUE(lists.parse(input.reader));
    for (const auto& [sizeId, matrixId] : coded_matrices()) {
        EXPECT_FALSE(lists.scaling_list_pred_mode_flag[sizeId][matrixId]);
        EXPECT_EQ(lists.scaling_list_pred_matrix_id_delta[sizeId][matrixId], 7U);
        EXPECT_EQ(lists.ScalingList[sizeId][matrixId],
                  std::vector<int>(sizeId == 0 ? 16 : 64, sizeId > 1 ? 58 : 8));
        if (sizeId > 1) {
            EXPECT_EQ(lists.scaling_list_dc_coef_minus8[sizeId - 2][matrixId], 50);
        }
    }

    test::rbsp explicit_again{all_explicit.bytes()};
    EXPECT_TRUE(lists.parse(explicit_again.reader));
    EXPECT_EQ(lists.scaling_list_pred_matrix_id_delta[0][0], 7U);
    EXPECT_TRUE(lists.scaling_list_pred_mode_flag[0][0]);
}

TEST(H265ScalingListData, KeepsTheMatricesThatAreNeverCoded) {
    h265_scaling_list_data lists = all_predicted();
    lists.scaling_list_pred_mode_flag[3] = {false, true, true, false, true, true};
    lists.scaling_list_pred_matrix_id_delta[3] = {0, 1, 2, 0, 4, 5};
    lists.scaling_list_dc_coef_minus8[1] = {0, -1, -2, 0, -4, -5};
    lists.ScalingList[3][1] = {1, 2, 3};
    const h265_scaling_list_data expected = lists;
    const test::bit_writer bits = with_matrix(0, 0, test::bit_writer().u<1>(0).ue(0));
    test::rbsp input{bits.bytes()};
    EXPECT_TRUE(lists.parse(input.reader));
    EXPECT_TRUE(test::same_fields(lists, expected));
}

TEST(H265ScalingListData, BringsItsArraysToTheirSizes) {
    h265_scaling_list_data lists;
    lists.scaling_list_pred_mode_flag.assign(5, std::vector<bool>(7, true));
    lists.scaling_list_pred_matrix_id_delta.assign(6, std::vector<unsigned int>(8, 3));
    lists.scaling_list_dc_coef_minus8.assign(3, std::vector<int>(9, 4));
    lists.ScalingList.assign(7, std::vector<std::vector<int>>(10, std::vector<int>(70, 5)));
    const test::bit_writer bits = with_matrix(0, 2, explicit_matrix({}, 16));
    test::rbsp input{bits.bytes()};
    EXPECT_TRUE(lists.parse(input.reader));
    ASSERT_EQ(lists.scaling_list_pred_mode_flag.size(), 4U);
    ASSERT_EQ(lists.scaling_list_pred_matrix_id_delta.size(), 4U);
    ASSERT_EQ(lists.scaling_list_dc_coef_minus8.size(), 2U);
    ASSERT_EQ(lists.ScalingList.size(), 4U);
    for (std::size_t sizeId = 0; sizeId < 4; ++sizeId) {
        EXPECT_EQ(lists.scaling_list_pred_mode_flag[sizeId].size(), 6U);
        EXPECT_EQ(lists.scaling_list_pred_matrix_id_delta[sizeId].size(), 6U);
        EXPECT_EQ(lists.ScalingList[sizeId].size(), 6U);
    }
    EXPECT_EQ(lists.scaling_list_dc_coef_minus8[0].size(), 6U);
    EXPECT_EQ(lists.scaling_list_dc_coef_minus8[1].size(), 6U);
    EXPECT_EQ(lists.ScalingList[0][2], std::vector<int>(16, 8));
    EXPECT_EQ(lists.ScalingList[0][3].size(), 70U);
}

TEST(H265ScalingListData, DoesNotNoticeTheEndOfTheInput) {
    test::rbsp input{};
    h265_scaling_list_data lists;
    EXPECT_TRUE(lists.parse(input.reader));
    EXPECT_TRUE(lists.valid);
    EXPECT_EQ(lists.scaling_list_pred_mode_flag, all_predicted().scaling_list_pred_mode_flag);
    EXPECT_EQ(lists.ScalingList, all_predicted().ScalingList);
}

}  // namespace
}  // namespace kovran
