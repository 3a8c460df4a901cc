"""What messages need of parameter sets, from the elements of these sets."""

from .surroundings import Hrd, Sps, Vps

ABSENT_LENGTH_MINUS1 = 23


class Values:
    """The first value of each name, 0 without one."""

    def __init__(self, elements):
        self.values = {}
        for name, value, *_ in elements:
            self.values.setdefault(name, value)

    def __getitem__(self, name):
        return self.values.get(name, 0)

    def length(self, name):
        return self.values.get(name, ABSENT_LENGTH_MINUS1) + 1


def hrds_of(elements, sub_layers):
    """Of hrd_parameters() with all parts."""
    first = "nal_hrd_parameters_present_flag"
    starts = [place for place, element in enumerate(elements) if element[0] == first]
    for start, end in zip(starts, [*starts[1:], len(elements)]):
        part = Values(elements[start:end])
        yield Hrd(
            nal=part["nal_hrd_parameters_present_flag"],
            vcl=part["vcl_hrd_parameters_present_flag"],
            sub_pic=part["sub_pic_hrd_params_present_flag"],
            in_pic_timing=part["sub_pic_cpb_params_in_pic_timing_sei_flag"],
            du_delay_bits=part["du_cpb_removal_delay_increment_length_minus1"] + 1,
            dpb_du_delay_bits=part["dpb_output_delay_du_length_minus1"] + 1,
            initial_bits=part.length("initial_cpb_removal_delay_length_minus1"),
            au_delay_bits=part.length("au_cpb_removal_delay_length_minus1"),
            dpb_delay_bits=part.length("dpb_output_delay_length_minus1"),
            cpb_counts=[part[f"cpb_cnt_minus1[{i}]"] + 1 for i in range(sub_layers)],
        )


def vps_of(elements):
    values = Values(elements)
    hrds = hrds_of(elements, values["vps_max_sub_layers_minus1"] + 1)
    vps = Vps(
        values["vps_base_layer_internal_flag"],
        values["vps_max_layers_minus1"],
        [(values[f"hrd_layer_set_idx[{i}]"], hrd) for i, hrd in enumerate(hrds)],
    )
    return values["vps_video_parameter_set_id"], vps


def sps_of(elements):
    values = Values(elements)
    sub_layers = values["sps_max_sub_layers_minus1"] + 1
    ctb_log2 = (
        values["log2_min_luma_coding_block_size_minus3"]
        + values["log2_diff_max_min_luma_coding_block_size"]
        + 3
    )
    ctbs = 1
    for side in ("pic_width_in_luma_samples", "pic_height_in_luma_samples"):
        ctbs *= values[side] + (1 << ctb_log2) - 1 >> ctb_log2
    sps = Sps(
        vps=values["sps_video_parameter_set_id"],
        chroma_format_idc=values["chroma_format_idc"],
        ctbs=ctbs,
        frame_field_info_present=values["frame_field_info_present_flag"],
        hrd=next(hrds_of(elements, sub_layers), None),
    )
    return values["sps_seq_parameter_set_id"], sps
