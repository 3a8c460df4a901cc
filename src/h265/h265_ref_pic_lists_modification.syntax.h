#ifndef KOVRAN_SRC_H265_H265_REF_PIC_LISTS_MODIFICATION_SYNTAX_H
#define KOVRAN_SRC_H265_H265_REF_PIC_LISTS_MODIFICATION_SYNTAX_H

#include "h2645_common/element.h"
#include "h2645_common/value_range.h"
#include "h265/slice_type.h"

#include <cstddef>

namespace kovran {

// One list of ref_pic_lists_modification(), clause 7.3.6.2.
template <class Walker, class Entries>
void list_entries(Walker& walk, element<Entries&> list_entry,
                  unsigned int num_ref_idx_active_minus1, unsigned int NumPicTotalCurr) {
    const unsigned char width = walk.rules.index_width(NumPicTotalCurr);
    const std::size_t entries = std::size_t{num_ref_idx_active_minus1} + 1;
    walk.grow_or_throw(entries, list_entry.field);
    for (std::size_t i = 0; i < entries; ++i) {
        walk.u_v(width, list_entry[i], up_to(std::int64_t{NumPicTotalCurr} - 1));
    }
}

template <class Walker, class Slice>
[[nodiscard]] bool can_have_references(Walker& walk, const Slice& slice) {
    return walk.at_most(ELEMENT(slice, num_ref_idx_l0_active_minus1),
                        walk.rules.max_ref_idx_active_minus1) &&
           walk.at_most(ELEMENT(slice, num_ref_idx_l1_active_minus1),
                        walk.rules.max_ref_idx_active_minus1);
}

// ref_pic_lists_modification(), clause 7.3.6.2.
template <class Walker, class Lists, class Slice>
[[nodiscard]] bool ref_pic_lists_modification(Walker& walk, Lists& lists, const Slice& slice) {
    walk.clear(lists.valid);
    if (slice.NumPicTotalCurr == 0 || !can_have_references(walk, slice)) {
        return false;
    }

    walk.u(1, ELEMENT(lists, ref_pic_list_modification_flag_l0));
    if (lists.ref_pic_list_modification_flag_l0) {
        list_entries(walk, ELEMENT(lists, list_entry_l0), slice.num_ref_idx_l0_active_minus1,
                     slice.NumPicTotalCurr);
    }
    if (slice.slice_type == slice_type_b) {
        walk.u(1, ELEMENT(lists, ref_pic_list_modification_flag_l1));
        if (lists.ref_pic_list_modification_flag_l1) {
            list_entries(walk, ELEMENT(lists, list_entry_l1), slice.num_ref_idx_l1_active_minus1,
                         slice.NumPicTotalCurr);
        }
    }
    return walk.finish(lists.valid);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_H265_REF_PIC_LISTS_MODIFICATION_SYNTAX_H
