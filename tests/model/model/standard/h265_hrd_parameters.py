"""hrd_parameters() and sub_layer_hrd_parameters(), H.265 clauses E.2.2, E.2.3 and E.3.2."""

COMMON_FIELDS = (
    "nal_hrd_parameters_present_flag",
    "vcl_hrd_parameters_present_flag",
    "sub_pic_hrd_params_present_flag",
    "tick_divisor_minus2",
    "du_cpb_removal_delay_increment_length_minus1",
    "sub_pic_cpb_params_in_pic_timing_sei_flag",
    "dpb_output_delay_du_length_minus1",
    "bit_rate_scale",
    "cpb_size_scale",
    "cpb_size_du_scale",
    "initial_cpb_removal_delay_length_minus1",
    "au_cpb_removal_delay_length_minus1",
    "dpb_output_delay_length_minus1",
)


def parse_sub_layer(sub_layer, sub_layer_id, cpb_count, hrd, r):
    sub_layer.reset()
    if cpb_count > 32:
        return False
    sub_layer.subLayerId = sub_layer_id
    sub_layer.cpb_count = cpb_count
    sub_layer.specifications(cpb_count, hrd, r)
    sub_layer.valid = r.in_data()
    return sub_layer.valid


def parse(hrd, common_inf_present_flag, max_num_sub_layers_minus1, r, before=None):
    """`before` is the structure that has the common information when this one does not."""
    hrd.reset()
    if max_num_sub_layers_minus1 > 6:
        return False
    hrd.commonInfPresentFlag = common_inf_present_flag
    hrd.maxNumSubLayersMinus1 = max_num_sub_layers_minus1
    hrd.initial_cpb_removal_delay_length_minus1 = 23
    hrd.au_cpb_removal_delay_length_minus1 = 23
    hrd.dpb_output_delay_length_minus1 = 23
    if common_inf_present_flag:
        hrd.common_information(r)
    elif before is not None:
        for name in COMMON_FIELDS:
            setattr(hrd, name, getattr(before, name))

    hrd.resize_sub_layers(max_num_sub_layers_minus1 + 1)
    for i in range(max_num_sub_layers_minus1 + 1):
        hrd.sub_layer_rate(i, r)
        count = hrd.cpb_cnt_minus1[i] + 1
        if hrd.nal_hrd_parameters_present_flag:
            if not parse_sub_layer(hrd.nal_sub_layer_hrd[i], i, count, hrd, r):
                return False
        if hrd.vcl_hrd_parameters_present_flag:
            if not parse_sub_layer(hrd.vcl_sub_layer_hrd[i], i, count, hrd, r):
                return False
    hrd.valid = r.in_data()
    return hrd.valid
