#ifndef KOVRAN_SRC_H265_SEI_H265_NAL_SEI_STRUCTURE_OF_PICTURES_INFO_SYNTAX_H
#define KOVRAN_SRC_H265_SEI_H265_NAL_SEI_STRUCTURE_OF_PICTURES_INFO_SYNTAX_H

#include <kovran/h265/h265_nal.h>
#include <kovran/h265/sei/h265_nal_sei_structure_of_pictures_info.h>

#include "h2645_common/element.h"
#include "h2645_common/value_range.h"
#include "h265/sei/in_entry.h"
#include "h265/sei/sei_context.h"
#include "h265/start_afresh.h"

#include <cstddef>

namespace kovran {

inline void start_afresh(h265_nal_sei_structure_of_pictures_info& record) {
    auto& [sop_seq_parameter_set_id, num_entries_in_sop_minus1, pictures, valid] = record;
    start_all_afresh(sop_seq_parameter_set_id, num_entries_in_sop_minus1, pictures, valid);
}

template <class Walker>
void sop_picture(Walker& walk, h265_nal_sei_structure_of_pictures_info::picture_t& picture,
                 std::size_t i) {
    walk.u(6, in_entry(i, ELEMENT(picture, sop_vcl_nut)));
    walk.u(3, in_entry(i, ELEMENT(picture, sop_temporal_id)));
    if (picture.sop_vcl_nut != IDR_W_RADL && picture.sop_vcl_nut != IDR_N_LP) {
        walk.ue(in_entry(i, ELEMENT(picture, sop_short_term_rps_idx)));
    }
    if (i > 0) {
        walk.se(in_entry(i, ELEMENT(picture, sop_poc_delta)));
    }
}

// structure_of_pictures_info(), clause D.2.19.
template <class Walker>
[[nodiscard]] bool payload_syntax(Walker& walk, h265_nal_sei_structure_of_pictures_info& info,
                                  const sei_context& /*context*/) {
    walk.ue(ELEMENT(info, sop_seq_parameter_set_id), up_to(15));
    walk.ue(ELEMENT(info, num_entries_in_sop_minus1), up_to(1023));
    if (!walk.at_most(ELEMENT(info, num_entries_in_sop_minus1), 1023U) ||
        !walk.data_holds(ELEMENT(info, num_entries_in_sop_minus1),
                         info.num_entries_in_sop_minus1 + 1, /*fewest_bits=*/9) ||
        !walk.grow(info.num_entries_in_sop_minus1 + 1, info.pictures)) {
        return false;
    }
    for (std::size_t i = 0; i <= info.num_entries_in_sop_minus1; ++i) {
        sop_picture(walk, info.pictures[i], i);
    }
    return walk.finish(info.valid);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_SEI_H265_NAL_SEI_STRUCTURE_OF_PICTURES_INFO_SYNTAX_H
