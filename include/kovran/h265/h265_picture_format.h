#ifndef KOVRAN_H265_H265_PICTURE_FORMAT_H
#define KOVRAN_H265_H265_PICTURE_FORMAT_H

#include <kovran/export.h>
#include <kovran/h265/h265_nal_sps.h>
#include <kovran/h265/h265_vui_parameters.h>

#include <cstdint>

namespace kovran {

// What an SPS says of its pictures: variables of clauses 6.2 and 7.4.3.2.1. An SPS can hold
// anything; where its values make no sense the sizes are 0.

struct h265_picture_size {
    std::uint64_t width = 0;
    std::uint64_t height = 0;
};

// ChromaArrayType: chroma_format_idc, or 0 with separate colour planes.
[[nodiscard]] KOVRAN_API unsigned int h265_chroma_array_type(const h265_nal_sps& sps);

// SubWidthC and SubHeightC, table 6-1: luma samples for each chroma sample, across and down.
[[nodiscard]] KOVRAN_API h265_picture_size h265_chroma_subsampling(const h265_nal_sps& sps);

// BitDepthY and BitDepthC.
[[nodiscard]] KOVRAN_API std::uint64_t h265_bit_depth_luma(const h265_nal_sps& sps);
[[nodiscard]] KOVRAN_API std::uint64_t h265_bit_depth_chroma(const h265_nal_sps& sps);

// The luma samples that the conformance window leaves; 0 in both directions when that is none.
[[nodiscard]] KOVRAN_API h265_picture_size h265_cropped_size(const h265_nal_sps& sps);

// CtbLog2SizeY, and PicWidthInCtbsY and PicHeightInCtbsY: 0 for blocks of 2^32 samples and more.
[[nodiscard]] KOVRAN_API std::uint64_t h265_ctb_log2_size(const h265_nal_sps& sps);
[[nodiscard]] KOVRAN_API h265_picture_size h265_size_in_ctbs(const h265_nal_sps& sps);

// PicWidthInMinCbsY and PicHeightInMinCbsY, likewise.
[[nodiscard]] KOVRAN_API h265_picture_size h265_size_in_min_cbs(const h265_nal_sps& sps);

// The shape of a luma sample by the VUI: width to height, not reduced. 0 by 0 where it is not
// specified, as with a sar_width or sar_height of 0.
[[nodiscard]] KOVRAN_API h265_sample_aspect_ratio
h265_sample_aspect_ratio_of(const h265_nal_sps& sps);

// WpOffsetHalfRangeY and WpOffsetHalfRangeC, for bit depths up to 16: offsets of prediction weights
// lie between minus this and this less 1.
[[nodiscard]] KOVRAN_API int h265_wp_offset_half_range_luma(const h265_nal_sps& sps);
[[nodiscard]] KOVRAN_API int h265_wp_offset_half_range_chroma(const h265_nal_sps& sps);

}  // namespace kovran

#endif  // KOVRAN_H265_H265_PICTURE_FORMAT_H
