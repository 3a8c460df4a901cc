#include <kovran/h265/h265_picture_format.h>

#include "h265/picture_size.h"
#include "h265/slice_ranges.h"
#include "h265/sps_ranges.h"

namespace kovran {

unsigned int h265_chroma_array_type(const h265_nal_sps& sps) {
    return chroma_array_type(sps);
}

h265_picture_size h265_chroma_subsampling(const h265_nal_sps& sps) {
    return {sub_width_c(sps), sub_height_c(sps)};
}

std::uint64_t h265_bit_depth_luma(const h265_nal_sps& sps) {
    return std::uint64_t{8} + sps.bit_depth_luma_minus8;
}

std::uint64_t h265_bit_depth_chroma(const h265_nal_sps& sps) {
    return std::uint64_t{8} + sps.bit_depth_chroma_minus8;
}

h265_picture_size h265_cropped_size(const h265_nal_sps& sps) {
    const h265_picture_size unit = h265_chroma_subsampling(sps);
    const std::uint64_t width = sps.pic_width_in_luma_samples;
    const std::uint64_t height = sps.pic_height_in_luma_samples;
    if (!sps.conformance_window_flag) {
        return {width, height};
    }
    const std::uint64_t across =
        unit.width * (std::uint64_t{sps.conf_win_left_offset} + sps.conf_win_right_offset);
    const std::uint64_t down =
        unit.height * (std::uint64_t{sps.conf_win_top_offset} + sps.conf_win_bottom_offset);
    if (across >= width || down >= height) {
        return {};
    }
    return {width - across, height - down};
}

std::uint64_t h265_ctb_log2_size(const h265_nal_sps& sps) {
    return static_cast<std::uint64_t>(ctb_log2_size(sps));
}

h265_picture_size h265_size_in_ctbs(const h265_nal_sps& sps) {
    const picture_size size = picture_size_in_ctbs(sps);
    return {size.width, size.height};
}

h265_picture_size h265_size_in_min_cbs(const h265_nal_sps& sps) {
    const picture_size size =
        picture_size_in_ctbs(sps, static_cast<std::uint64_t>(min_cb_log2_size(sps)));
    return {size.width, size.height};
}

h265_sample_aspect_ratio h265_sample_aspect_ratio_of(const h265_nal_sps& sps) {
    const h265_vui_parameters& vui = sps.vui_parameters;
    const bool is_specified = sps.vui_parameters_present_flag &&
                              vui.aspect_ratio_info_present_flag && vui.sar_width != 0 &&
                              vui.sar_height != 0;
    return is_specified ? h265_sample_aspect_ratio{vui.sar_width, vui.sar_height}
                        : h265_sample_aspect_ratio{};
}

int h265_wp_offset_half_range_luma(const h265_nal_sps& sps) {
    return static_cast<int>(wp_offset_half_range(
        sps.sps_range_extension.high_precision_offsets_enabled_flag, sps.bit_depth_luma_minus8));
}

int h265_wp_offset_half_range_chroma(const h265_nal_sps& sps) {
    return static_cast<int>(wp_offset_half_range(
        sps.sps_range_extension.high_precision_offsets_enabled_flag, sps.bit_depth_chroma_minus8));
}

}  // namespace kovran
