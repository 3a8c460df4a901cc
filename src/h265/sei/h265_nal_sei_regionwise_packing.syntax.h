#ifndef KOVRAN_SRC_H265_SEI_H265_NAL_SEI_REGIONWISE_PACKING_SYNTAX_H
#define KOVRAN_SRC_H265_SEI_H265_NAL_SEI_REGIONWISE_PACKING_SYNTAX_H

#include <kovran/h265/sei/h265_nal_sei_regionwise_packing.h>

#include "h2645_common/element.h"
#include "h2645_common/value_range.h"
#include "h265/sei/in_entry.h"
#include "h265/sei/sei_context.h"
#include "h265/start_afresh.h"

#include <cstddef>

namespace kovran {

inline void start_afresh(h265_nal_sei_regionwise_packing& record) {
    auto& [rwp_cancel_flag, rwp_persistence_flag, constituent_picture_matching_flag,
           num_packed_regions, proj_picture_width, proj_picture_height, packed_picture_width,
           packed_picture_height, packed_regions, valid] = record;
    start_all_afresh(rwp_cancel_flag, rwp_persistence_flag, constituent_picture_matching_flag,
                     num_packed_regions, proj_picture_width, proj_picture_height,
                     packed_picture_width, packed_picture_height, packed_regions, valid);
}

template <class Walker, class PackedRegion>
void regionwise_packing_guard_bands(Walker& walk, PackedRegion& region, std::size_t i) {
    walk.u(8, in_entry(i, ELEMENT(region, rwp_left_guard_band_width)));
    walk.u(8, in_entry(i, ELEMENT(region, rwp_right_guard_band_width)));
    walk.u(8, in_entry(i, ELEMENT(region, rwp_top_guard_band_height)));
    walk.u(8, in_entry(i, ELEMENT(region, rwp_bottom_guard_band_height)));
    walk.u(1, in_entry(i, ELEMENT(region, rwp_guard_band_not_used_for_pred_flag)));
    for (std::size_t j = 0; j < region.rwp_guard_band_type.size(); ++j) {
        walk.u(3, in_entry(i, ELEMENT(region, rwp_guard_band_type))[j]);
    }
    walk.skip(3, "rwp_guard_band_reserved_zero_3bits", i);
}

template <class Walker, class PackedRegion>
void regionwise_packing_region(Walker& walk, PackedRegion& region, std::size_t i) {
    walk.skip(4, "rwp_reserved_zero_4bits", i);
    walk.u(3, in_entry(i, ELEMENT(region, rwp_transform_type)));
    walk.u(1, in_entry(i, ELEMENT(region, rwp_guard_band_flag)));
    walk.u(32, in_entry(i, ELEMENT(region, proj_region_width)));
    walk.u(32, in_entry(i, ELEMENT(region, proj_region_height)));
    walk.u(32, in_entry(i, ELEMENT(region, proj_region_top)));
    walk.u(32, in_entry(i, ELEMENT(region, proj_region_left)));
    walk.u(16, in_entry(i, ELEMENT(region, packed_region_width)));
    walk.u(16, in_entry(i, ELEMENT(region, packed_region_height)));
    walk.u(16, in_entry(i, ELEMENT(region, packed_region_top)));
    walk.u(16, in_entry(i, ELEMENT(region, packed_region_left)));
    if (region.rwp_guard_band_flag) {
        regionwise_packing_guard_bands(walk, region, i);
    }
}

// regionwise_packing(), clause D.2.41.
template <class Walker>
[[nodiscard]] bool payload_syntax(Walker& walk, h265_nal_sei_regionwise_packing& packing,
                                  const sei_context& /*context*/) {
    walk.u(1, ELEMENT(packing, rwp_cancel_flag));
    if (packing.rwp_cancel_flag) {
        return walk.finish(packing.valid);
    }
    walk.u(1, ELEMENT(packing, rwp_persistence_flag));
    walk.u(1, ELEMENT(packing, constituent_picture_matching_flag));
    walk.skip(5, "rwp_reserved_zero_5bits");
    walk.u(8, ELEMENT(packing, num_packed_regions), from(1));
    walk.u(32, ELEMENT(packing, proj_picture_width), from(1));
    walk.u(32, ELEMENT(packing, proj_picture_height), from(1));
    walk.u(16, ELEMENT(packing, packed_picture_width), from(1));
    walk.u(16, ELEMENT(packing, packed_picture_height), from(1));
    if (!walk.data_holds(ELEMENT(packing, num_packed_regions), packing.num_packed_regions,
                         /*fewest_bits=*/8 + 4 * 32 + 4 * 16) ||
        !walk.grow(packing.num_packed_regions, packing.packed_regions)) {
        return false;
    }
    for (std::size_t i = 0; i < packing.num_packed_regions; ++i) {
        regionwise_packing_region(walk, packing.packed_regions[i], i);
    }
    return walk.finish(packing.valid);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_SEI_H265_NAL_SEI_REGIONWISE_PACKING_SYNTAX_H
