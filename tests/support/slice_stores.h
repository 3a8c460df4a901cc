#ifndef KOVRAN_TESTS_SUPPORT_SLICE_STORES_H
#define KOVRAN_TESTS_SUPPORT_SLICE_STORES_H

#include <kovran/h2645_common/h2645_common_base_store.h>
#include <kovran/h265/h265_nal_pps.h>
#include <kovran/h265/h265_nal_sps.h>
#include <kovran/h265/h265_nal_vps.h>

namespace kovran::test {

// What slices refer to: PPS 0 of SPS 0 of VPS 0, filled by hand. The picture has one coding tree
// block of 64x64, and order counts have 4 bits.
struct slice_stores {
    slice_stores() {
        vps_store[0];
        h265_nal_sps& sps = sps_store[0];
        sps.chroma_format_idc = 1;
        sps.pic_width_in_luma_samples = 64;
        sps.pic_height_in_luma_samples = 64;
        sps.log2_diff_max_min_luma_coding_block_size = 3;
        pps_store[0];
    }

    h265_nal_pps& pps() { return pps_store.at(0); }
    h265_nal_sps& sps() { return sps_store.at(0); }

    h2645_common_base_store<h265_nal_vps> vps_store;
    h2645_common_base_store<h265_nal_sps> sps_store;
    h2645_common_base_store<h265_nal_pps> pps_store;
};

}  // namespace kovran::test

#endif  // KOVRAN_TESTS_SUPPORT_SLICE_STORES_H
