#ifndef KOVRAN_SRC_H265_H265_SCALING_LIST_DATA_SYNTAX_H
#define KOVRAN_SRC_H265_H265_SCALING_LIST_DATA_SYNTAX_H

#include "h2645_common/element.h"
#include "h2645_common/value_range.h"
#include "h2645_common/wrapping.h"

#include <algorithm>

namespace kovran {

// scaling_list_data(), clause 7.3.4.
template <class Walker, class ScalingLists>
[[nodiscard]] bool scaling_list_data(Walker& walk, ScalingLists& lists) {
    walk.clear(lists.valid);
    walk.rules.begin_scaling_lists(lists);
    if (!walk.grow(4, lists.ScalingList, lists.scaling_list_pred_mode_flag) ||
        !walk.grow(2, lists.scaling_list_dc_coef_minus8) ||
        !walk.grow(4, lists.scaling_list_pred_matrix_id_delta)) {
        return false;
    }
    for (unsigned int sizeId = 0; sizeId < 4; ++sizeId) {
        if (!walk.grow(6, lists.ScalingList[sizeId], lists.scaling_list_pred_mode_flag[sizeId],
                       lists.scaling_list_pred_matrix_id_delta[sizeId]) ||
            (sizeId > 1 && !walk.grow(6, lists.scaling_list_dc_coef_minus8[sizeId - 2]))) {
            return false;
        }
        const unsigned int coefNum = std::min(64U, 1U << (4 + (sizeId << 1)));
        for (unsigned int matrixId = 0; matrixId < 6; matrixId += sizeId == 3 ? 3 : 1) {
            walk.u(1, ELEMENT(lists, scaling_list_pred_mode_flag)[sizeId][matrixId]);
            if (!lists.scaling_list_pred_mode_flag[sizeId][matrixId]) {
                walk.ue(ELEMENT(lists, scaling_list_pred_matrix_id_delta)[sizeId][matrixId],
                        up_to(matrixId / (sizeId == 3 ? 3 : 1)));
                if (!walk.rules.end_predicted_scaling_list(walk, lists, sizeId, matrixId)) {
                    return false;
                }
                continue;
            }
            unsigned int nextCoef = 8;
            if (sizeId > 1) {
                auto& dc_coef_minus8 = lists.scaling_list_dc_coef_minus8[sizeId - 2][matrixId];
                walk.se(ELEMENT(lists, scaling_list_dc_coef_minus8)[sizeId - 2][matrixId],
                        between(-7, 247));
                nextCoef = wrapping_sum(static_cast<unsigned int>(dc_coef_minus8), 8) & 0xFFU;
            }
            auto& coefficients = lists.ScalingList[sizeId][matrixId];
            if (!walk.grow(coefNum, coefficients)) {
                return false;
            }
            for (unsigned int i = 0; i < coefNum; ++i) {
                int scaling_list_delta_coef = 0;
                walk.se(named("scaling_list_delta_coef", scaling_list_delta_coef,
                              {{sizeId, matrixId, i}, 3}),
                        between(-128, 127));
                nextCoef =
                    wrapping_sum(nextCoef, static_cast<unsigned int>(scaling_list_delta_coef)) &
                    0xFFU;
                walk.assign(coefficients[i], nextCoef);
            }
        }
    }
    return walk.finish(lists.valid);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_H265_SCALING_LIST_DATA_SYNTAX_H
