"""pred_weight_table(), H.265 clauses 7.3.6.3 and 7.4.7.3."""


def current_picture_entries(header, current_counts, is_l1):
    """Of each active entry whether it is the current picture itself, clause 8.3.4. Every list has
    the pictures that the slice may use, again and again, the current one last."""
    count = header.num_ref_idx_l1_active_minus1 if is_l1 else header.num_ref_idx_l0_active_minus1
    count += 1
    if not current_counts:
        return [False] * count
    lists = header.ref_pic_lists_modification
    if is_l1:
        modified, entries = lists.ref_pic_list_modification_flag_l1, lists.list_entry_l1
    else:
        modified, entries = lists.ref_pic_list_modification_flag_l0, lists.list_entry_l0
    total = header.NumPicTotalCurr
    candidates = [place % total == total - 1 for place in range(max(count, total))]
    if modified:
        # Entries are below NumPicTotalCurr; what an index of the same width beyond it names would
        # be the pictures once more.
        return [entry % total == total - 1 for entry in entries]
    chosen = candidates[:count]
    if not is_l1 and len(candidates) > count:
        chosen[-1] = True
    return chosen


def parse(table, r, header, pps, sps):
    table.reset()
    table.present = True
    has_chroma = sps.chroma_format_idc != 0 and not sps.separate_colour_plane_flag
    table.luma_log2_weight_denom = r.ue()
    if has_chroma:
        table.delta_chroma_log2_weight_denom = r.se()
    current_counts = pps.pps_scc_extension.pps_curr_pic_ref_enabled_flag
    for name in ("l0", "l1") if header.slice_type == 0 else ("l0",):
        is_current = current_picture_entries(header, current_counts, name == "l1")
        luma_flags = getattr(table, f"luma_weight_{name}_flag")
        chroma_flags = getattr(table, f"chroma_weight_{name}_flag")
        for flags in (luma_flags, chroma_flags) if has_chroma else (luma_flags,):
            for i, current in enumerate(is_current):
                if not current:
                    flags[i] = r.flag("weight_flag")
        for i in range(len(is_current)):
            if luma_flags[i]:
                getattr(table, f"delta_luma_weight_{name}")[i] = r.se()
                getattr(table, f"luma_offset_{name}")[i] = r.se()
            if chroma_flags[i]:
                for j in (0, 1):
                    getattr(table, f"delta_chroma_weight_{name}")[i][j] = r.se()
                    getattr(table, f"delta_chroma_offset_{name}")[i][j] = r.se()
