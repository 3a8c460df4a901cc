#ifndef KOVRAN_H265_SEI_H265_NAL_SEI_CONTENT_LIGHT_LEVEL_INFO_H
#define KOVRAN_H265_SEI_H265_NAL_SEI_CONTENT_LIGHT_LEVEL_INFO_H

#include <kovran/export.h>
#include <kovran/h2645_common/h2645_common_bitreader.h>
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_trace.h>

namespace kovran {

// content_light_level_info(), clause D.2.35.
struct h265_nal_sei_content_light_level_info {
    static constexpr unsigned int payload_type = 144;
    static constexpr const char* payload_name = "content_light_level_info";

    // In candela per square metre; 0 stands for unknown.
    unsigned short max_content_light_level = 0;      // u(16)
    unsigned short max_pic_average_light_level = 0;  // u(16)

    bool valid = false;  // the latest parse succeeded

    // Reads one payload up to its last element, in a record that is reset first. False, with
    // `valid` false: the data ends.
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_fault* fault = nullptr);
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_trace& trace,
                                   h265_fault* fault = nullptr);
};

}  // namespace kovran

#endif  // KOVRAN_H265_SEI_H265_NAL_SEI_CONTENT_LIGHT_LEVEL_INFO_H
