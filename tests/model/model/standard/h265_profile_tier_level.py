"""profile_tier_level(), H.265 clauses 7.3.3 and 7.4.4."""

PROFILE_FIELDS = (
    "profile_compatibility_flag",
    "profile_space",
    "profile_idc",
    "progressive_source_flag",
    "interlaced_source_flag",
    "non_packed_constraint_flag",
    "frame_only_constraint_flag",
    "max_12bit_constraint_flag",
    "max_10bit_constraint_flag",
    "max_8bit_constraint_flag",
    "max_422chroma_constraint_flag",
    "max_420chroma_constraint_flag",
    "max_monochrome_constraint_flag",
    "intra_constraint_flag",
    "one_picture_only_constraint_flag",
    "lower_bit_rate_constraint_flag",
    "max_14bit_constraint_flag",
    "inbld_flag",
    "tier_flag",
)


def parse(ptl, profile_present_flag, max_num_sub_layers_minus1, r):
    ptl.reset()
    ptl.general.profile_present_flag = profile_present_flag
    ptl.general.level_present_flag = True
    ptl.general.parse(r)
    if max_num_sub_layers_minus1 > 6:
        return False
    ptl.read_sub_layers(max_num_sub_layers_minus1, r)

    above = ptl.general
    for layer in reversed(ptl.sub_layers):
        if not layer.profile_present_flag:
            for name in PROFILE_FIELDS:
                value = getattr(above, name)
                setattr(layer, name, value[:] if isinstance(value, list) else value)
        if not layer.level_present_flag:
            layer.level_idc = above.level_idc
        above = layer
    ptl.valid = r.in_data()
    return ptl.valid
