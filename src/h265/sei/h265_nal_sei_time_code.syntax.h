#ifndef KOVRAN_SRC_H265_SEI_H265_NAL_SEI_TIME_CODE_SYNTAX_H
#define KOVRAN_SRC_H265_SEI_H265_NAL_SEI_TIME_CODE_SYNTAX_H

#include <kovran/h265/sei/h265_nal_sei_time_code.h>

#include "h2645_common/element.h"
#include "h2645_common/value_range.h"
#include "h265/sei/in_entry.h"
#include "h265/sei/sei_context.h"
#include "h265/start_afresh.h"

#include <cstddef>

namespace kovran {

inline void start_afresh(h265_nal_sei_time_code& record) {
    auto& [num_clock_ts, clock_timestamps, valid] = record;
    start_all_afresh(num_clock_ts, clock_timestamps, valid);
}

// All three parts, or as many as their flags say.
template <class Walker>
void clock_timestamp_time(Walker& walk, h265_nal_sei_time_code::clock_timestamp_t& stamp,
                          std::size_t i) {
    if (stamp.full_timestamp_flag) {
        walk.u(6, in_entry(i, ELEMENT(stamp, seconds_value)), up_to(59));
        walk.u(6, in_entry(i, ELEMENT(stamp, minutes_value)), up_to(59));
        walk.u(5, in_entry(i, ELEMENT(stamp, hours_value)), up_to(23));
        return;
    }
    walk.u(1, in_entry(i, ELEMENT(stamp, seconds_flag)));
    if (stamp.seconds_flag) {
        walk.u(6, in_entry(i, ELEMENT(stamp, seconds_value)), up_to(59));
        walk.u(1, in_entry(i, ELEMENT(stamp, minutes_flag)));
        if (stamp.minutes_flag) {
            walk.u(6, in_entry(i, ELEMENT(stamp, minutes_value)), up_to(59));
            walk.u(1, in_entry(i, ELEMENT(stamp, hours_flag)));
            if (stamp.hours_flag) {
                walk.u(5, in_entry(i, ELEMENT(stamp, hours_value)), up_to(23));
            }
        }
    }
}

template <class Walker>
void clock_timestamp(Walker& walk, h265_nal_sei_time_code::clock_timestamp_t& stamp,
                     std::size_t i) {
    walk.u(1, in_entry(i, ELEMENT(stamp, clock_timestamp_flag)));
    if (!stamp.clock_timestamp_flag) {
        return;
    }
    walk.u(1, in_entry(i, ELEMENT(stamp, units_field_based_flag)));
    walk.u(5, in_entry(i, ELEMENT(stamp, counting_type)));
    walk.u(1, in_entry(i, ELEMENT(stamp, full_timestamp_flag)));
    walk.u(1, in_entry(i, ELEMENT(stamp, discontinuity_flag)));
    walk.u(1, in_entry(i, ELEMENT(stamp, cnt_dropped_flag)));
    walk.u(9, in_entry(i, ELEMENT(stamp, n_frames)));
    clock_timestamp_time(walk, stamp, i);
    walk.u(5, in_entry(i, ELEMENT(stamp, time_offset_length)));
    if (stamp.time_offset_length > 0) {
        walk.i_v(stamp.time_offset_length, in_entry(i, ELEMENT(stamp, time_offset_value)));
    }
}

// time_code(), clause D.2.27.
template <class Walker>
[[nodiscard]] bool payload_syntax(Walker& walk, h265_nal_sei_time_code& time_code,
                                  const sei_context& /*context*/) {
    walk.u(2, ELEMENT(time_code, num_clock_ts));
    if (!walk.grow(time_code.num_clock_ts, time_code.clock_timestamps)) {
        return false;
    }
    for (std::size_t i = 0; i < time_code.num_clock_ts; ++i) {
        clock_timestamp(walk, time_code.clock_timestamps[i], i);
    }
    return walk.finish(time_code.valid);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_SEI_H265_NAL_SEI_TIME_CODE_SYNTAX_H
