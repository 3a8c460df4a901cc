#ifndef KOVRAN_SRC_H265_PICTURE_SIZE_H
#define KOVRAN_SRC_H265_PICTURE_SIZE_H

#include "h2645_common/wrapping.h"

namespace kovran {

struct picture_size {
    unsigned int width;
    unsigned int height;
};

// PicWidthInCtbsY and PicHeightInCtbsY, equations 7-10 to 7-18, in 32 bits; 0 both when the SPS's
// coding tree block size makes no sense.
template <class Sps>
[[nodiscard]] picture_size picture_size_in_ctbs(const Sps& sps) {
    const unsigned int CtbLog2SizeY =
        wrapping_sum(wrapping_sum(sps.log2_min_luma_coding_block_size_minus3, 3),
                     sps.log2_diff_max_min_luma_coding_block_size);
    if (CtbLog2SizeY >= 32) {
        return {0, 0};
    }
    const unsigned int CtbSizeY = 1U << CtbLog2SizeY;
    const auto in_ctbs = [CtbSizeY](unsigned int samples) {
        return samples / CtbSizeY + (samples % CtbSizeY != 0 ? 1 : 0);
    };
    return {in_ctbs(sps.pic_width_in_luma_samples), in_ctbs(sps.pic_height_in_luma_samples)};
}

// PicSizeInCtbsY, equation 7-19, in 32 bits; 0 when the SPS's sizes make no sense.
template <class Sps>
[[nodiscard]] unsigned int pic_size_in_ctbs(const Sps& sps) {
    const picture_size size = picture_size_in_ctbs(sps);
    return wrapping_product(size.width, size.height);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_PICTURE_SIZE_H
