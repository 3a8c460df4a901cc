#ifndef KOVRAN_H265_SEI_H265_NAL_SEI_DEINTERLACED_FIELD_IDENTIFICATION_H
#define KOVRAN_H265_SEI_H265_NAL_SEI_DEINTERLACED_FIELD_IDENTIFICATION_H

#include <kovran/export.h>
#include <kovran/h2645_common/h2645_common_bitreader.h>
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_trace.h>

namespace kovran {

// deinterlaced_field_identification(), clause D.2.34.
struct h265_nal_sei_deinterlaced_field_identification {
    static constexpr unsigned int payload_type = 143;
    static constexpr const char* payload_name = "deinterlaced_field_identification";

    bool deinterlaced_picture_source_parity_flag = false;  // u(1): a bottom field was the source

    bool valid = false;  // the latest parse succeeded

    // Reads one payload up to its last element, in a record that is reset first. False, with
    // `valid` false: the data ends.
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_fault* fault = nullptr);
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_trace& trace,
                                   h265_fault* fault = nullptr);
};

}  // namespace kovran

#endif  // KOVRAN_H265_SEI_H265_NAL_SEI_DEINTERLACED_FIELD_IDENTIFICATION_H
