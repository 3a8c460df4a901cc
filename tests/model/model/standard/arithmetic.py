"""Functions of clause 5.8, and variables of 7.4.3.2.1."""


def ceil_log2(count):
    """Ceil(Log2(count)); 0 for a count of 0 or 1."""
    width = 0
    while (1 << width) < count:
        width += 1
    return width


def ctb_log2_size(sps):
    """Equation 7-11."""
    return (
        sps.log2_min_luma_coding_block_size_minus3
        + 3
        + sps.log2_diff_max_min_luma_coding_block_size
    )


def size_in_ctbs(sps):
    """PicWidthInCtbsY and PicHeightInCtbsY, equations 7-15 and 7-17."""
    size = 1 << min(ctb_log2_size(sps), 40)
    return (
        -(-sps.pic_width_in_luma_samples // size),
        -(-sps.pic_height_in_luma_samples // size),
    )
