#ifndef KOVRAN_SRC_H265_PICTURE_SIZE_H
#define KOVRAN_SRC_H265_PICTURE_SIZE_H

#include "h2645_common/value_range.h"
#include "h2645_common/wrapping.h"

#include <algorithm>
#include <cstdint>

namespace kovran {

// The longest side of a picture of any level, Sqrt( MaxLumaPs * 8 ) samples of clause A.4.1, in the
// smallest coding tree blocks.
inline constexpr unsigned int longest_side_in_ctbs = 16888 / 16 + 1;

// PicWidthInCtbsY and PicHeightInCtbsY, equations 7-15 and 7-17; 0 both when there is no coding
// tree block of that size.
struct picture_size {
    unsigned int width;
    unsigned int height;
};

template <class Sps>
[[nodiscard]] picture_size picture_size_in_ctbs(const Sps& sps, std::uint64_t CtbLog2SizeY) {
    if (CtbLog2SizeY >= 32) {
        return {0, 0};
    }
    const unsigned int CtbSizeY = 1U << CtbLog2SizeY;
    const auto in_ctbs = [CtbSizeY](unsigned int samples) {
        return samples / CtbSizeY + (samples % CtbSizeY != 0 ? 1 : 0);
    };
    return {in_ctbs(sps.pic_width_in_luma_samples), in_ctbs(sps.pic_height_in_luma_samples)};
}

template <class Sps>
[[nodiscard]] picture_size picture_size_in_ctbs(const Sps& sps) {
    return picture_size_in_ctbs(sps, std::uint64_t{sps.log2_min_luma_coding_block_size_minus3} + 3 +
                                         sps.log2_diff_max_min_luma_coding_block_size);
}

// PicSizeInCtbsY, equation 7-19.
template <class Sps>
[[nodiscard]] std::uint64_t pic_size_in_ctbs(const Sps& sps) {
    const picture_size size = picture_size_in_ctbs(sps);
    return std::uint64_t{size.width} * size.height;
}

// What counts the blocks of a picture from 0.
template <class Sps>
[[nodiscard]] value_range pic_size_range(const Sps& sps) {
    constexpr std::uint64_t absurd = std::uint64_t{1} << 32;
    return up_to(static_cast<std::int64_t>(std::min(pic_size_in_ctbs(sps), absurd)) - 1);
}

// PicSizeInCtbsY with every sum and product modulo 2^32.
template <class Sps>
[[nodiscard]] unsigned int wrapping_pic_size_in_ctbs(const Sps& sps) {
    const unsigned int CtbLog2SizeY =
        wrapping_sum(wrapping_sum(sps.log2_min_luma_coding_block_size_minus3, 3),
                     sps.log2_diff_max_min_luma_coding_block_size);
    const picture_size size = picture_size_in_ctbs(sps, CtbLog2SizeY);
    return wrapping_product(size.width, size.height);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_PICTURE_SIZE_H
