#ifndef KOVRAN_H265_SEI_H265_NAL_SEI_USER_DATA_UNREGISTERED_H
#define KOVRAN_H265_SEI_H265_NAL_SEI_USER_DATA_UNREGISTERED_H

#include <kovran/export.h>
#include <kovran/h2645_common/h2645_common_bitreader.h>
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_trace.h>

#include <array>
#include <vector>

namespace kovran {

// user_data_unregistered(), clause D.2.7.
struct h265_nal_sei_user_data_unregistered {
    static constexpr unsigned int payload_type = 5;
    static constexpr const char* payload_name = "user_data_unregistered";

    std::array<unsigned char, 16> uuid_iso_iec_11578{};  // u(128)
    std::vector<unsigned char> user_data_payload_byte;   // b(8), the rest of the payload

    bool valid = false;  // the latest parse succeeded

    // Reads one payload, to its end, in a record that is reset first. False, with `valid` false: it
    // has fewer than 16 bytes, or there is no memory.
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_fault* fault = nullptr);
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_trace& trace,
                                   h265_fault* fault = nullptr);
};

}  // namespace kovran

#endif  // KOVRAN_H265_SEI_H265_NAL_SEI_USER_DATA_UNREGISTERED_H
