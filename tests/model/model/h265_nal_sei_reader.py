"""sei_rbsp(), H.265 clause 7.3.2.4: the walk over its messages."""

# Clause D.2.1, first as prefix, then as suffix SEI messages.
PREFIX_NAMES = {
    0: "buffering_period",
    1: "pic_timing",
    2: "pan_scan_rect",
    3: "filler_payload",
    4: "user_data_registered_itu_t_t35",
    5: "user_data_unregistered",
    6: "recovery_point",
    9: "scene_info",
    15: "picture_snapshot",
    16: "progressive_refinement_segment_start",
    17: "progressive_refinement_segment_end",
    19: "film_grain_characteristics",
    22: "post_filter_hint",
    23: "tone_mapping_info",
    45: "frame_packing_arrangement",
    47: "display_orientation",
    56: "green_metadata",
    128: "structure_of_pictures_info",
    129: "active_parameter_sets",
    130: "decoding_unit_info",
    131: "temporal_sub_layer_zero_idx",
    133: "scalable_nesting",
    134: "region_refresh_info",
    135: "no_display",
    136: "time_code",
    137: "mastering_display_colour_volume",
    138: "segmented_rect_frame_packing_arrangement",
    139: "temporal_motion_constrained_tile_sets",
    140: "chroma_resampling_filter_hint",
    141: "knee_function_info",
    142: "colour_remapping_info",
    143: "deinterlaced_field_identification",
    144: "content_light_level_info",
    145: "dependent_rap_indication",
    146: "coded_region_completion",
    147: "alternative_transfer_characteristics",
    148: "ambient_viewing_environment",
    149: "content_colour_volume",
    150: "equirectangular_projection",
    151: "cubemap_projection",
    152: "fisheye_video_info",
    154: "sphere_rotation",
    155: "regionwise_packing",
    156: "omni_viewport",
    157: "regional_nesting",
    158: "mcts_extraction_info_sets",
    159: "mcts_extraction_info_nesting",
    160: "layers_not_present",
    161: "inter_layer_constrained_tile_sets",
    162: "bsp_nesting",
    163: "bsp_initial_arrival_time",
    164: "sub_bitstream_property",
    165: "alpha_channel_info",
    166: "overlay_info",
    167: "temporal_mv_prediction_constraints",
    168: "frame_field_info",
    176: "three_dimensional_reference_displays_info",
    177: "depth_representation_info",
    178: "multiview_scene_info",
    179: "multiview_acquisition_info",
    180: "multiview_view_position",
    181: "alternative_depth_info",
    200: "sei_manifest",
    201: "sei_prefix_indication",
    202: "annotated_regions",
}
SUFFIX_NAMES = {
    0: "filler_payload",
    4: "user_data_registered_itu_t_t35",
    5: "user_data_unregistered",
    17: "progressive_refinement_segment_end",
    22: "post_filter_hint",
    132: "decoded_picture_hash",
    146: "coded_region_completion",
}
PREFIX_SEI_NUT = 39
SUFFIX_SEI_NUT = 40

NO_PAYLOAD_TYPE = 0x7FFFFFFF
CUT_OFF = 0xFFFFFFFF
LARGEST = 0xFFFFFFFE


def run_length(data, place):
    """payloadType or payloadSize at `place`, and the place after it."""
    rest = data[place:]
    full = len(rest) - len(rest.lstrip(b"\xff"))
    value = 255 * full
    place += full
    if place >= len(data):
        return CUT_OFF, place
    return min(value + data[place], LARGEST), place + 1


class h265_nal_sei_reader:
    """Places are offsets into the data; None is a null pointer."""

    def __init__(self):
        self.data = b""
        self.cursor = None
        self.end = None
        self.message_begin = None
        self.payload_begin = None
        self.payload_end = None
        self.payload_type = NO_PAYLOAD_TYPE
        self.nal_unit_type = 0
        self.payload_size = 0
        self.message_valid = False
        self.truncated = False

    def set_ptr(self, data, begin, end, nal_unit_type):
        """An `end` before `begin` makes an empty range."""
        self.data = data[:end] if end is not None else b""
        self.cursor = begin
        self.end = end
        self.message_begin = None
        self.payload_begin = None
        self.payload_end = None
        self.payload_type = NO_PAYLOAD_TYPE
        self.nal_unit_type = nal_unit_type
        self.payload_size = 0
        self.message_valid = False
        self.truncated = False

    def next_message(self):
        self.message_valid = False
        self.truncated = False
        if self.cursor is None or self.end - self.cursor < 2:
            return False
        self.message_begin = self.cursor
        self.payload_type, self.cursor = run_length(self.data, self.cursor)
        if self.payload_type == CUT_OFF:
            return False
        self.payload_size, self.cursor = run_length(self.data, self.cursor)
        if self.payload_size == CUT_OFF:
            return False
        self.message_valid = True
        self.payload_begin = self.cursor
        if self.payload_size > self.end - self.payload_begin:
            self.truncated = True
            self.payload_end = self.end
        else:
            self.payload_end = self.payload_begin + self.payload_size
        self.cursor = self.payload_end
        if self.end - self.cursor == 1 and self.data[self.cursor] == 0x80:
            self.cursor = self.end
        return True

    def state(self):
        state = dict(vars(self))
        del state["data"]
        return state

    def text(self):
        if self.nal_unit_type == PREFIX_SEI_NUT:
            return [PREFIX_NAMES.get(self.payload_type, "")]
        if self.nal_unit_type == SUFFIX_SEI_NUT:
            return [SUFFIX_NAMES.get(self.payload_type, "")]
        return [""]
