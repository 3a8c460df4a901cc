#ifndef KOVRAN_H265_SEI_H265_NAL_SEI_ALTERNATIVE_TRANSFER_CHARACTERISTICS_H
#define KOVRAN_H265_SEI_H265_NAL_SEI_ALTERNATIVE_TRANSFER_CHARACTERISTICS_H

#include <kovran/export.h>
#include <kovran/h2645_common/h2645_common_bitreader.h>
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_trace.h>

namespace kovran {

// alternative_transfer_characteristics(), clause D.2.38.
struct h265_nal_sei_alternative_transfer_characteristics {
    static constexpr unsigned int payload_type = 147;
    static constexpr const char* payload_name = "alternative_transfer_characteristics";

    unsigned char preferred_transfer_characteristics =
        0;  // u(8), as transfer_characteristics in a VUI

    bool valid = false;  // the latest parse succeeded

    // Reads one payload up to its last element, in a record that is reset first. False, with
    // `valid` false: the data ends.
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_fault* fault = nullptr);
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_trace& trace,
                                   h265_fault* fault = nullptr);
};

}  // namespace kovran

#endif  // KOVRAN_H265_SEI_H265_NAL_SEI_ALTERNATIVE_TRANSFER_CHARACTERISTICS_H
