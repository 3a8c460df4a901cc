#ifndef KOVRAN_SRC_H265_SCALING_LIST_PREDICTION_H
#define KOVRAN_SRC_H265_SCALING_LIST_PREDICTION_H

#include <array>

namespace kovran {

// ScalingList[ 1..3 ][ 0..2 ] where nothing else is given, table 7-6: of intra prediction.
inline constexpr std::array<unsigned char, 64> default_intra_scaling_list = {
    16, 16, 16, 16, 16, 16, 16, 16, 16, 16, 17, 16, 17, 16, 17, 18,  //
    17, 18, 18, 17, 18, 21, 19, 20, 21, 20, 19, 21, 24, 22, 22, 24,  //
    24, 22, 22, 24, 25, 25, 27, 30, 27, 25, 25, 29, 31, 35, 35, 31,  //
    29, 36, 41, 44, 41, 36, 47, 54, 54, 47, 65, 70, 65, 88, 88, 115};

// The same for matrixId 3 to 5: of inter prediction.
inline constexpr std::array<unsigned char, 64> default_inter_scaling_list = {
    16, 16, 16, 16, 16, 16, 16, 16, 16, 16, 17, 17, 17, 17, 17, 18,  //
    18, 18, 18, 18, 18, 20, 20, 20, 20, 20, 20, 20, 24, 24, 24, 24,  //
    24, 24, 24, 24, 25, 25, 25, 25, 25, 25, 25, 28, 28, 28, 28, 28,  //
    28, 33, 33, 33, 33, 33, 41, 41, 41, 41, 54, 54, 54, 71, 71, 91};

// Fills a matrix that is predicted from another one or from the default lists, clause 7.4.5. False
// when the reference lies before matrix 0, or there is no memory.
template <class Walker, class ScalingLists>
[[nodiscard]] bool predict_scaling_list(Walker& walk, ScalingLists& lists, unsigned int sizeId,
                                        unsigned int matrixId) {
    constexpr int flat = 16;
    const unsigned int delta = lists.scaling_list_pred_matrix_id_delta[sizeId][matrixId];
    const unsigned int step = sizeId == 3 ? 3 : 1;
    if (delta > matrixId / step) {
        return false;
    }
    auto& matrices = lists.ScalingList[sizeId];
    auto& coefficients = matrices[matrixId];
    if (!walk.grow(sizeId == 0 ? 16 : 64, coefficients)) {
        return false;
    }
    const unsigned int refMatrixId = matrixId - delta * step;
    for (unsigned int i = 0; i < coefficients.size(); ++i) {
        if (delta != 0) {
            walk.assign(coefficients[i], matrices[refMatrixId][i]);
        } else if (sizeId == 0) {
            walk.assign(coefficients[i], flat);
        } else {
            const auto& list =
                matrixId < 3 ? default_intra_scaling_list : default_inter_scaling_list;
            walk.assign(coefficients[i], list[i]);
        }
    }
    if (sizeId > 1) {
        auto& dc_coef_minus8 = lists.scaling_list_dc_coef_minus8[sizeId - 2];
        walk.assign(dc_coef_minus8[matrixId], delta != 0 ? dc_coef_minus8[refMatrixId] : flat - 8);
    }
    return true;
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_SCALING_LIST_PREDICTION_H
