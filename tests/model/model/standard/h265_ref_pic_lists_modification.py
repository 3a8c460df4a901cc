"""ref_pic_lists_modification(), H.265 clauses 7.3.6.2 and 7.4.7.2."""

from .arithmetic import ceil_log2

MAX_ENTRIES = 15


def parse(lists, r, header):
    lists.reset()
    entries_l0 = header.num_ref_idx_l0_active_minus1 + 1
    entries_l1 = header.num_ref_idx_l1_active_minus1 + 1
    if header.NumPicTotalCurr == 0 or max(entries_l0, entries_l1) > MAX_ENTRIES:
        return False
    width = ceil_log2(header.NumPicTotalCurr)
    lists.ref_pic_list_modification_flag_l0 = r.flag("ref_pic_list_modification_flag")
    if lists.ref_pic_list_modification_flag_l0:
        lists.list_entry_l0 = [r.u(width) for _ in range(entries_l0)]
    if header.slice_type == 0:
        lists.ref_pic_list_modification_flag_l1 = r.flag("ref_pic_list_modification_flag")
        if lists.ref_pic_list_modification_flag_l1:
            lists.list_entry_l1 = [r.u(width) for _ in range(entries_l1)]
    lists.valid = r.in_data()
    return lists.valid
