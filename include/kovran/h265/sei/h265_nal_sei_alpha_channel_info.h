#ifndef KOVRAN_H265_SEI_H265_NAL_SEI_ALPHA_CHANNEL_INFO_H
#define KOVRAN_H265_SEI_H265_NAL_SEI_ALPHA_CHANNEL_INFO_H

#include <kovran/export.h>
#include <kovran/h2645_common/h2645_common_bitreader.h>
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_trace.h>

namespace kovran {

// alpha_channel_info(), clause F.14.2.
struct h265_nal_sei_alpha_channel_info {
    static constexpr unsigned int payload_type = 165;
    static constexpr const char* payload_name = "alpha_channel_info";

    bool alpha_channel_cancel_flag = false;  // u(1)

    // Unless alpha_channel_cancel_flag.
    unsigned char alpha_channel_use_idc = 0;  // u(3): 0 straight samples, 1 premultiplied ones
    unsigned char alpha_channel_bit_depth_minus8 = 0;  // u(3)
    unsigned short alpha_transparent_value = 0;        // u(v), of 1 bit more than the bit depth
    unsigned short alpha_opaque_value = 0;             // u(v), likewise
    bool alpha_channel_incr_flag = false;              // u(1)
    bool alpha_channel_clip_flag = false;              // u(1)
    bool alpha_channel_clip_type_flag = false;         // u(1), when alpha_channel_clip_flag

    bool valid = false;  // the latest parse succeeded

    // Reads one payload up to its last element, in a record that is reset first. False, with
    // `valid` false: the data ends.
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_fault* fault = nullptr);
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_trace& trace,
                                   h265_fault* fault = nullptr);
};

}  // namespace kovran

#endif  // KOVRAN_H265_SEI_H265_NAL_SEI_ALPHA_CHANNEL_INFO_H
