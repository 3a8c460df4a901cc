#include <kovran/h265/h265_picture_format.h>

#include <gtest/gtest.h>

#include <cstdint>

namespace kovran {
namespace {

constexpr unsigned int largest = 0xFFFFFFFF;

// 4:2:0 with blocks of 8 to 64 samples.
h265_nal_sps sps_of(unsigned int width, unsigned int height) {
    h265_nal_sps sps;
    sps.chroma_format_idc = 1;
    sps.pic_width_in_luma_samples = width;
    sps.pic_height_in_luma_samples = height;
    sps.log2_min_luma_coding_block_size_minus3 = 0;
    sps.log2_diff_max_min_luma_coding_block_size = 3;
    return sps;
}

void expect_size(const h265_picture_size& size, std::uint64_t width, std::uint64_t height) {
    EXPECT_EQ(size.width, width);
    EXPECT_EQ(size.height, height);
}

void expect_ratio(const h265_sample_aspect_ratio& ratio, int width, int height) {
    EXPECT_EQ(ratio.width, width);
    EXPECT_EQ(ratio.height, height);
}

TEST(H265PictureFormat, SeparateColourPlanesHaveNoChroma) {
    h265_nal_sps sps;
    for (unsigned int format = 0; format < 4; ++format) {
        sps.chroma_format_idc = format;
        EXPECT_EQ(h265_chroma_array_type(sps), format);
    }
    sps.separate_colour_plane_flag = true;
    EXPECT_EQ(h265_chroma_array_type(sps), 0U);
    expect_size(h265_chroma_subsampling(sps), 1, 1);
}

TEST(H265PictureFormat, ChromaIsSubsampledByItsFormat) {
    h265_nal_sps sps;
    sps.chroma_format_idc = 0;
    expect_size(h265_chroma_subsampling(sps), 1, 1);
    sps.chroma_format_idc = 1;
    expect_size(h265_chroma_subsampling(sps), 2, 2);
    sps.chroma_format_idc = 2;
    expect_size(h265_chroma_subsampling(sps), 2, 1);
    sps.chroma_format_idc = 3;
    expect_size(h265_chroma_subsampling(sps), 1, 1);
    sps.chroma_format_idc = largest;
    expect_size(h265_chroma_subsampling(sps), 1, 1);
}

TEST(H265PictureFormat, BitDepthsBeginAtEight) {
    h265_nal_sps sps;
    sps.bit_depth_luma_minus8 = 2;
    sps.bit_depth_chroma_minus8 = 4;
    EXPECT_EQ(h265_bit_depth_luma(sps), 10U);
    EXPECT_EQ(h265_bit_depth_chroma(sps), 12U);
    sps.bit_depth_luma_minus8 = largest;
    EXPECT_EQ(h265_bit_depth_luma(sps), 4294967303U);
}

TEST(H265PictureFormat, TheConformanceWindowCountsInChromaSamples) {
    h265_nal_sps sps = sps_of(1920, 1088);
    sps.conf_win_bottom_offset = 4;
    expect_size(h265_cropped_size(sps), 1920, 1088);
    sps.conformance_window_flag = true;
    expect_size(h265_cropped_size(sps), 1920, 1080);
    sps.conf_win_left_offset = 1;
    sps.conf_win_right_offset = 2;
    sps.conf_win_top_offset = 3;
    expect_size(h265_cropped_size(sps), 1914, 1074);
    sps.chroma_format_idc = 2;
    expect_size(h265_cropped_size(sps), 1914, 1081);
    sps.chroma_format_idc = 3;
    expect_size(h265_cropped_size(sps), 1917, 1081);
}

TEST(H265PictureFormat, AWindowThatLeavesNothingIsEmpty) {
    h265_nal_sps sps = sps_of(64, 64);
    sps.conformance_window_flag = true;
    sps.conf_win_left_offset = 31;
    expect_size(h265_cropped_size(sps), 2, 64);
    sps.conf_win_right_offset = 1;
    expect_size(h265_cropped_size(sps), 0, 0);
    sps.conf_win_left_offset = largest;
    sps.conf_win_right_offset = largest;
    expect_size(h265_cropped_size(sps), 0, 0);
    sps.conf_win_right_offset = 1;  // 2^32 together
    expect_size(h265_cropped_size(sps), 0, 0);
    sps.conf_win_left_offset = 0;
    sps.conf_win_right_offset = 0;
    sps.conf_win_top_offset = largest;
    sps.conf_win_bottom_offset = largest;
    expect_size(h265_cropped_size(sps), 0, 0);
    sps.conf_win_bottom_offset = 1;
    expect_size(h265_cropped_size(sps), 0, 0);
    sps.conf_win_top_offset = 31;
    expect_size(h265_cropped_size(sps), 0, 0);
    sps.conf_win_top_offset = 30;
    expect_size(h265_cropped_size(sps), 64, 2);
}

TEST(H265PictureFormat, BlocksAtTheEdgesCount) {
    h265_nal_sps sps = sps_of(1920, 1088);
    EXPECT_EQ(h265_ctb_log2_size(sps), 6U);
    expect_size(h265_size_in_ctbs(sps), 30, 17);
    expect_size(h265_size_in_min_cbs(sps), 240, 136);
    sps = sps_of(1928, 1096);
    expect_size(h265_size_in_ctbs(sps), 31, 18);
    expect_size(h265_size_in_min_cbs(sps), 241, 137);
    sps.log2_min_luma_coding_block_size_minus3 = 1;
    sps.log2_diff_max_min_luma_coding_block_size = 0;
    EXPECT_EQ(h265_ctb_log2_size(sps), 4U);
    expect_size(h265_size_in_ctbs(sps), 121, 69);
}

TEST(H265PictureFormat, AbsurdBlocksGiveNoSize) {
    h265_nal_sps sps = sps_of(largest, largest);
    expect_size(h265_size_in_ctbs(sps), 67108864, 67108864);
    sps.log2_diff_max_min_luma_coding_block_size = 28;
    expect_size(h265_size_in_ctbs(sps), 2, 2);
    sps.log2_diff_max_min_luma_coding_block_size = 29;
    EXPECT_EQ(h265_ctb_log2_size(sps), 32U);
    expect_size(h265_size_in_ctbs(sps), 0, 0);
    sps.log2_diff_max_min_luma_coding_block_size = largest;
    sps.log2_min_luma_coding_block_size_minus3 = largest;
    EXPECT_EQ(h265_ctb_log2_size(sps), 8589934593U);
    expect_size(h265_size_in_ctbs(sps), 0, 0);
    expect_size(h265_size_in_min_cbs(sps), 0, 0);
}

TEST(H265PictureFormat, SamplesHaveTheRatioOfTheVui) {
    h265_nal_sps sps;
    h265_vui_parameters& vui = sps.vui_parameters;
    vui.sar_width = 40;
    vui.sar_height = 33;
    expect_ratio(h265_sample_aspect_ratio_of(sps), 0, 0);
    sps.vui_parameters_present_flag = true;
    expect_ratio(h265_sample_aspect_ratio_of(sps), 0, 0);
    vui.aspect_ratio_info_present_flag = true;
    expect_ratio(h265_sample_aspect_ratio_of(sps), 40, 33);
    sps.vui_parameters_present_flag = false;
    expect_ratio(h265_sample_aspect_ratio_of(sps), 0, 0);
}

TEST(H265PictureFormat, ARatioWithAZeroIsUnspecified) {
    h265_nal_sps sps;
    sps.vui_parameters_present_flag = true;
    sps.vui_parameters.aspect_ratio_info_present_flag = true;
    sps.vui_parameters.sar_width = 1;
    expect_ratio(h265_sample_aspect_ratio_of(sps), 0, 0);
    sps.vui_parameters.sar_width = 0;
    sps.vui_parameters.sar_height = 1;
    expect_ratio(h265_sample_aspect_ratio_of(sps), 0, 0);
}

TEST(H265PictureFormat, WeightOffsetsHaveAllBitsWithHighPrecision) {
    h265_nal_sps sps;
    sps.bit_depth_luma_minus8 = 2;
    sps.bit_depth_chroma_minus8 = 8;
    EXPECT_EQ(h265_wp_offset_half_range_luma(sps), 128);
    EXPECT_EQ(h265_wp_offset_half_range_chroma(sps), 128);
    sps.sps_range_extension.high_precision_offsets_enabled_flag = true;
    EXPECT_EQ(h265_wp_offset_half_range_luma(sps), 512);
    EXPECT_EQ(h265_wp_offset_half_range_chroma(sps), 32768);
    sps.bit_depth_luma_minus8 = largest;
    EXPECT_EQ(h265_wp_offset_half_range_luma(sps), 32768);
}

}  // namespace
}  // namespace kovran
