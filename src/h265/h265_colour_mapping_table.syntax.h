#ifndef KOVRAN_SRC_H265_H265_COLOUR_MAPPING_TABLE_SYNTAX_H
#define KOVRAN_SRC_H265_H265_COLOUR_MAPPING_TABLE_SYNTAX_H

#include "h2645_common/element.h"
#include "h2645_common/value_range.h"

#include <algorithm>

namespace kovran {

// One vertex of a part, clause F.7.3.2.3.6: the inmost loops of colour_mapping_octants(). `at` are
// the indices of the part.
template <class Walker, class Part>
void colour_mapping_vertex(Walker& walk, Part& part, const element_indices& at, unsigned int j,
                           unsigned char CMResLSBits) {
    walk.u(1, named("coded_res_flag", part.coded_res_flag[j], at.followed_by(j)));
    if (!part.coded_res_flag[j]) {
        return;
    }
    for (unsigned int c = 0; c < 3; ++c) {
        const element_indices here = at.followed_by(j).followed_by(c);
        walk.ue(named("res_coeff_q", part.res_coeff_q[j][c], here));
        walk.u_v(CMResLSBits, named("res_coeff_r", part.res_coeff_r[j][c], here));
        if (part.res_coeff_q[j][c] != 0 || part.res_coeff_r[j][c] != 0) {
            walk.u(1, named("res_coeff_s", part.res_coeff_s[j][c], here));
        }
    }
}

// The parts of colour_mapping_octants(), clause F.7.3.2.3.6. The table has at most one level of
// octants below the first: it is the first alone, or eight.
template <class Walker, class Table>
[[nodiscard]] bool colour_mapping_octants(Walker& walk, Table& table, unsigned char CMResLSBits) {
    if (table.cm_octant_depth != 0) {
        walk.u(1, ELEMENT(table, split_octant_flag));
    }
    const unsigned int PartNumY = 1U << table.cm_y_part_num_log2;
    const unsigned int length = table.split_octant_flag ? 2 : 1;  // of an edge, in octants
    const unsigned int parts = length * length * length * PartNumY;
    if (!walk.data_holds(ELEMENT(table, cm_y_part_num_log2), parts, /*fewest_bits=*/4) ||
        !walk.grow(parts, table.parts)) {
        return false;
    }
    const unsigned int step = table.split_octant_flag ? 0 : table.cm_octant_depth;
    auto part = table.parts.begin();
    for (unsigned int k = 0; k < length; ++k) {
        for (unsigned int idxCb = 0; idxCb < length; ++idxCb) {
            for (unsigned int idxCr = 0; idxCr < length; ++idxCr) {
                for (unsigned int i = 0; i < PartNumY; ++i, ++part) {
                    const unsigned int idxShiftY = PartNumY * k + (i << step);
                    walk.assign(part->idxShiftY, idxShiftY);
                    walk.assign(part->idxCb, idxCb);
                    walk.assign(part->idxCr, idxCr);
                    const element_indices at =
                        element_indices{}.followed_by(idxShiftY).followed_by(idxCb).followed_by(
                            idxCr);
                    for (unsigned int j = 0; j < 4; ++j) {
                        colour_mapping_vertex(walk, *part, at, j, CMResLSBits);
                    }
                }
            }
        }
    }
    return true;
}

// colour_mapping_table(), clause F.7.3.2.3.5.
template <class Walker, class Table>
[[nodiscard]] bool colour_mapping_table(Walker& walk, Table& table) {
    walk.ue(ELEMENT(table, num_cm_ref_layers_minus1), up_to(61));
    if (!walk.at_most(ELEMENT(table, num_cm_ref_layers_minus1), 61U) ||
        !walk.data_holds(ELEMENT(table, num_cm_ref_layers_minus1),
                         table.num_cm_ref_layers_minus1 + 1, /*fewest_bits=*/6) ||
        !walk.grow(table.num_cm_ref_layers_minus1 + 1, table.cm_ref_layer_id)) {
        return false;
    }
    for (unsigned int i = 0; i <= table.num_cm_ref_layers_minus1; ++i) {
        walk.u(6, ELEMENT(table, cm_ref_layer_id)[i], up_to(62));
    }
    walk.u(2, ELEMENT(table, cm_octant_depth), up_to(1));
    if (!walk.at_most(ELEMENT(table, cm_octant_depth), 1U)) {
        return false;
    }
    walk.u(2, ELEMENT(table, cm_y_part_num_log2), up_to(3 - table.cm_octant_depth));

    walk.ue(ELEMENT(table, luma_bit_depth_cm_input_minus8), up_to(8));
    walk.ue(ELEMENT(table, chroma_bit_depth_cm_input_minus8), up_to(8));
    walk.ue(ELEMENT(table, luma_bit_depth_cm_output_minus8),
            between(table.luma_bit_depth_cm_input_minus8, 8));
    walk.ue(ELEMENT(table, chroma_bit_depth_cm_output_minus8),
            between(table.chroma_bit_depth_cm_input_minus8, 8));
    if (!walk.at_most(ELEMENT(table, luma_bit_depth_cm_input_minus8), 8U) ||
        !walk.at_most(ELEMENT(table, luma_bit_depth_cm_output_minus8), 8U)) {
        return false;
    }
    walk.u(2, ELEMENT(table, cm_res_quant_bits));
    walk.u(2, ELEMENT(table, cm_delta_flc_bits_minus1));
    if (table.cm_octant_depth == 1) {
        walk.se(ELEMENT(table, cm_adapt_threshold_u_delta), between(-(1 << 15), (1 << 15) - 1));
        walk.se(ELEMENT(table, cm_adapt_threshold_v_delta), between(-(1 << 15), (1 << 15) - 1));
    }
    // CMResLSBits, clause F.7.4.3.3.6.
    const int width = 10 + static_cast<int>(table.luma_bit_depth_cm_input_minus8) -
                      static_cast<int>(table.luma_bit_depth_cm_output_minus8) -
                      table.cm_res_quant_bits - (table.cm_delta_flc_bits_minus1 + 1);
    return colour_mapping_octants(walk, table, static_cast<unsigned char>(std::max(0, width)));
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_H265_COLOUR_MAPPING_TABLE_SYNTAX_H
