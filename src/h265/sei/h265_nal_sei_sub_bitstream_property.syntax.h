#ifndef KOVRAN_SRC_H265_SEI_H265_NAL_SEI_SUB_BITSTREAM_PROPERTY_SYNTAX_H
#define KOVRAN_SRC_H265_SEI_H265_NAL_SEI_SUB_BITSTREAM_PROPERTY_SYNTAX_H

#include <kovran/h265/sei/h265_nal_sei_sub_bitstream_property.h>

#include "h2645_common/element.h"
#include "h265/sei/in_entry.h"
#include "h265/sei/sei_context.h"
#include "h265/start_afresh.h"

#include <cstddef>

namespace kovran {

inline void start_afresh(h265_nal_sei_sub_bitstream_property& record) {
    auto& [sb_property_active_vps_id, num_additional_sub_streams_minus1, sub_streams, valid] =
        record;
    start_all_afresh(sb_property_active_vps_id, num_additional_sub_streams_minus1, sub_streams,
                     valid);
}

// sub_bitstream_property(), clause F.14.2.
template <class Walker>
[[nodiscard]] bool payload_syntax(Walker& walk, h265_nal_sei_sub_bitstream_property& property,
                                  const sei_context& /*context*/) {
    walk.u(4, ELEMENT(property, sb_property_active_vps_id));
    walk.ue(ELEMENT(property, num_additional_sub_streams_minus1));
    const std::size_t streams = std::size_t{property.num_additional_sub_streams_minus1} + 1;
    if (!walk.data_holds(ELEMENT(property, num_additional_sub_streams_minus1), streams,
                         /*fewest_bits=*/2 + 1 + 3 + 16 + 16) ||
        !walk.grow(streams, property.sub_streams)) {
        return false;
    }
    for (std::size_t i = 0; i < streams; ++i) {
        auto& stream = property.sub_streams[i];
        walk.u(2, in_entry(i, ELEMENT(stream, sub_bitstream_mode)));
        walk.ue(in_entry(i, ELEMENT(stream, ols_idx_to_vps)));
        walk.u(3, in_entry(i, ELEMENT(stream, highest_sublayer_id)));
        walk.u(16, in_entry(i, ELEMENT(stream, avg_sb_property_bit_rate)));
        walk.u(16, in_entry(i, ELEMENT(stream, max_sb_property_bit_rate)));
    }
    return walk.finish(property.valid);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_SEI_H265_NAL_SEI_SUB_BITSTREAM_PROPERTY_SYNTAX_H
