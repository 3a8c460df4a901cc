#ifndef KOVRAN_H265_SEI_H265_NAL_SEI_FILLER_PAYLOAD_H
#define KOVRAN_H265_SEI_H265_NAL_SEI_FILLER_PAYLOAD_H

#include <kovran/export.h>
#include <kovran/h2645_common/h2645_common_bitreader.h>
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_trace.h>

#include <vector>

namespace kovran {

// filler_payload(), clause D.2.5.
struct h265_nal_sei_filler_payload {
    static constexpr unsigned int payload_type = 3;
    static constexpr const char* payload_name = "filler_payload";

    std::vector<unsigned char> ff_byte;  // f(8), all bytes of the payload; each should be 0xFF

    bool valid = false;  // the latest parse succeeded

    // Reads one payload to its end, in a record that is reset first. False, with `valid` false:
    // there is no memory.
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_fault* fault = nullptr);
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_trace& trace,
                                   h265_fault* fault = nullptr);
};

}  // namespace kovran

#endif  // KOVRAN_H265_SEI_H265_NAL_SEI_FILLER_PAYLOAD_H
