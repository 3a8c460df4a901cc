#ifndef KOVRAN_SRC_H265_H265_REF_PIC_LISTS_MODIFICATION_SYNTAX_H
#define KOVRAN_SRC_H265_H265_REF_PIC_LISTS_MODIFICATION_SYNTAX_H

#include "h2645_common/element.h"
#include "h265/slice_type.h"

#include <cstddef>

namespace kovran {

// One list of ref_pic_lists_modification(), clause 7.3.6.2.
template <class Walker, class Entries>
void list_entries(Walker& walk, element<Entries&> list_entry,
                  unsigned int num_ref_idx_active_minus1, unsigned char width) {
    const std::size_t entries = std::size_t{num_ref_idx_active_minus1} + 1;
    walk.grow_or_throw(entries, list_entry.field);
    for (std::size_t i = 0; i < entries; ++i) {
        walk.u_v(width, list_entry[i]);
    }
}

template <class Rules, class Slice>
[[nodiscard]] bool has_too_many_references(const Slice& slice) {
    return slice.num_ref_idx_l0_active_minus1 > Rules::max_ref_idx_active_minus1 ||
           slice.num_ref_idx_l1_active_minus1 > Rules::max_ref_idx_active_minus1;
}

// ref_pic_lists_modification(), clause 7.3.6.2.
template <class Walker, class Lists, class Slice>
[[nodiscard]] bool ref_pic_lists_modification(Walker& walk, Lists& lists, const Slice& slice) {
    walk.clear(lists.valid);
    if (slice.NumPicTotalCurr == 0 || has_too_many_references<typename Walker::rules>(slice)) {
        return false;
    }
    const unsigned char width = Walker::rules::index_width(slice.NumPicTotalCurr);

    walk.u(1, ELEMENT(lists, ref_pic_list_modification_flag_l0));
    if (lists.ref_pic_list_modification_flag_l0) {
        list_entries(walk, ELEMENT(lists, list_entry_l0), slice.num_ref_idx_l0_active_minus1,
                     width);
    }
    if (slice.slice_type == slice_type_b) {
        walk.u(1, ELEMENT(lists, ref_pic_list_modification_flag_l1));
        if (lists.ref_pic_list_modification_flag_l1) {
            list_entries(walk, ELEMENT(lists, list_entry_l1), slice.num_ref_idx_l1_active_minus1,
                         width);
        }
    }
    walk.set(lists.valid);
    return true;
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_H265_REF_PIC_LISTS_MODIFICATION_SYNTAX_H
