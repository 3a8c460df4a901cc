#ifndef KOVRAN_H265_SEI_H265_NAL_SEI_TIME_CODE_H
#define KOVRAN_H265_SEI_H265_NAL_SEI_TIME_CODE_H

#include <kovran/export.h>
#include <kovran/h2645_common/h2645_common_bitreader.h>
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_trace.h>

#include <string>
#include <vector>

namespace kovran {

// time_code(), clause D.2.27.
struct h265_nal_sei_time_code {
    static constexpr unsigned int payload_type = 136;
    static constexpr const char* payload_name = "time_code";

    struct clock_timestamp_t {
        bool clock_timestamp_flag = false;  // u(1)

        // When clock_timestamp_flag.
        bool units_field_based_flag = false;  // u(1)
        unsigned char counting_type = 0;      // u(5)
        bool full_timestamp_flag = false;     // u(1)
        bool discontinuity_flag = false;      // u(1)
        bool cnt_dropped_flag = false;        // u(1)
        unsigned short n_frames = 0;          // u(9)

        // Likewise. The flags are in the stream unless full_timestamp_flag, each when the one
        // before it is set; the values are there when their flag is, or full_timestamp_flag. A part
        // that is not there is that of the time before; its field is 0.
        bool seconds_flag = false;        // u(1)
        unsigned char seconds_value = 0;  // u(6)
        bool minutes_flag = false;        // u(1)
        unsigned char minutes_value = 0;  // u(6)
        bool hours_flag = false;          // u(1)
        unsigned char hours_value = 0;    // u(5)

        unsigned char time_offset_length = 0;  // u(5), likewise
        // In units of 1 / vui_time_scale seconds.
        int time_offset_value = 0;  // i(v), when time_offset_length > 0

        // The time as "hh:mm:ss:ff", clause D.3.27; "--" for a part that is not in the stream.
        // n_frames may have three digits. ";" stands before them where counting_type is 4, which
        // drops two numbers of frames at most minutes.
        [[nodiscard]] KOVRAN_API std::string time_to_str() const;
    };

    unsigned char num_clock_ts = 0;                   // u(2)
    std::vector<clock_timestamp_t> clock_timestamps;  // num_clock_ts entries

    bool valid = false;  // the latest parse succeeded

    // Reads one payload up to its last element, in a record that is reset first. False, with
    // `valid` false: the data ends, or there is no memory.
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_fault* fault = nullptr);
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_trace& trace,
                                   h265_fault* fault = nullptr);
};

}  // namespace kovran

#endif  // KOVRAN_H265_SEI_H265_NAL_SEI_TIME_CODE_H
