#ifndef KOVRAN_H265_SEI_H265_NAL_SEI_SEI_MANIFEST_H
#define KOVRAN_H265_SEI_H265_NAL_SEI_SEI_MANIFEST_H

#include <kovran/export.h>
#include <kovran/h2645_common/h2645_common_bitreader.h>
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_trace.h>

#include <vector>

namespace kovran {

// sei_manifest(), clause D.2.45.
struct h265_nal_sei_sei_manifest {
    static constexpr unsigned int payload_type = 200;
    static constexpr const char* payload_name = "sei_manifest";

    unsigned short manifest_num_sei_msg_types = 0;  // u(16)

    // manifest_num_sei_msg_types entries each: a payload type, and whether its messages are
    // expected.
    std::vector<unsigned short> manifest_sei_payload_type;  // u(16)
    std::vector<unsigned char> manifest_sei_description;    // u(8)

    bool valid = false;  // the latest parse succeeded

    // Reads one payload up to its last element, in a record that is reset first. False, with
    // `valid` false: there are more types than the data can hold, the data ends, or there is no
    // memory.
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_fault* fault = nullptr);
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_trace& trace,
                                   h265_fault* fault = nullptr);

    // An entry of manifest_sei_description, for display; "?" for a reserved value.
    [[nodiscard]] KOVRAN_API static const char* manifest_sei_description_to_str(
        unsigned char manifest_sei_description);
};

}  // namespace kovran

#endif  // KOVRAN_H265_SEI_H265_NAL_SEI_SEI_MANIFEST_H
