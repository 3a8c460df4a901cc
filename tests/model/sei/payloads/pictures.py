"""What is done with pictures, and what is in them."""

from .table import payload


@payload(2)
def pan_scan_rect(s, around):
    s.ue("pan_scan_rect_id")
    if not s.u(1, "pan_scan_rect_cancel_flag"):
        for i in range(s.ue("pan_scan_cnt_minus1", top=2) + 1):
            for side in ("left", "right", "top", "bottom"):
                s.se(f"pan_scan_rect_{side}_offset", i)
        s.u(1, "pan_scan_rect_persistence_flag")


@payload(15)
def picture_snapshot(s, around):
    s.ue("snapshot_id")


@payload(22)
def post_filter_hint(s, around):
    components = around.components()
    height = s.ue("filter_hint_size_y", top=4)
    width = s.ue("filter_hint_size_x", top=4)
    s.u(2, "filter_hint_type")
    for c in range(components):
        for y in range(height if width else 0):
            for x in range(width):
                s.se("filter_hint_value", c, y, x)


@payload(132)
def decoded_picture_hash(s, around):
    components = around.components()
    kind = s.u(8, "hash_type", top=3)
    for c in range(components):
        if kind == 0:
            for i in range(16):
                s.u(8, "picture_md5", c, i)
        elif kind == 1:
            s.u(16, "picture_crc", c)
        elif kind == 2:
            s.u(32, "picture_checksum", c)


@payload(134)
def region_refresh_info(s, around):
    s.u(1, "refreshed_region_flag")


@payload(135)
def no_display(s, around):
    pass


@payload(143)
def deinterlaced_field_identification(s, around):
    s.u(1, "deinterlaced_picture_source_parity_flag")


@payload(202)
def annotated_regions(s, around):
    if s.u(1, "ar_cancel_flag"):
        return
    s.u(1, "ar_not_optimized_for_viewing_flag")
    s.u(1, "ar_true_motion_flag")
    s.u(1, "ar_occluded_object_flag")
    partial = s.u(1, "ar_partial_object_flag_present_flag")
    labels = s.u(1, "ar_object_label_present_flag")
    confidence_bits = 0
    if s.u(1, "ar_object_confidence_info_present_flag"):
        confidence_bits = s.u(4, "ar_object_confidence_length_minus1") + 1
    if labels:
        if s.u(1, "ar_object_label_language_present_flag"):
            s.align("ar_bit_equal_to_zero")
            s.text("ar_object_label_language")
        for i in range(s.ue("ar_num_label_updates", top=3)):
            label = s.ue("ar_label_idx", i)
            if not s.u(1, "ar_label_cancel_flag"):
                s.align("ar_bit_equal_to_zero")
                s.text("ar_label", label)
    for i in range(s.ue("ar_num_object_updates", top=3)):
        index = s.ue("ar_object_idx", i)
        if s.u(1, "ar_object_cancel_flag"):
            continue
        if labels and s.u(1, "ar_object_label_update_flag"):
            s.ue("ar_object_label_idx", index)
        if s.u(1, "ar_bounding_box_update_flag") and not s.u(1, "ar_bounding_box_cancel_flag"):
            for side in ("top", "left", "width", "height"):
                s.u(16, f"ar_bounding_box_{side}", index)
            if partial:
                s.u(1, "ar_partial_object_flag", index)
            s.u(confidence_bits, "ar_object_confidence", index)
