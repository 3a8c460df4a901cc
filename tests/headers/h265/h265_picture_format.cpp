#include <kovran/h265/h265_picture_format.h>

int main() {
    kovran::h265_nal_sps sps;
    sps.chroma_format_idc = 1;
    sps.pic_width_in_luma_samples = 128;
    sps.pic_height_in_luma_samples = 64;
    sps.log2_diff_max_min_luma_coding_block_size = 3;
    const bool format = kovran::h265_chroma_array_type(sps) == 1 &&
                        kovran::h265_chroma_subsampling(sps).width == 2 &&
                        kovran::h265_bit_depth_luma(sps) == 8 &&
                        kovran::h265_bit_depth_chroma(sps) == 8;
    const bool size = kovran::h265_cropped_size(sps).width == 128 &&
                      kovran::h265_ctb_log2_size(sps) == 6 &&
                      kovran::h265_size_in_ctbs(sps).width == 2 &&
                      kovran::h265_size_in_min_cbs(sps).height == 8 &&
                      kovran::h265_sample_aspect_ratio_of(sps).width == 0;
    const bool weights = kovran::h265_wp_offset_half_range_luma(sps) == 128 &&
                         kovran::h265_wp_offset_half_range_chroma(sps) == 128;
    return format && size && weights ? 0 : 1;
}
