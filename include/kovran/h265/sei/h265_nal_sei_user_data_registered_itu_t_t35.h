#ifndef KOVRAN_H265_SEI_H265_NAL_SEI_USER_DATA_REGISTERED_ITU_T_T35_H
#define KOVRAN_H265_SEI_H265_NAL_SEI_USER_DATA_REGISTERED_ITU_T_T35_H

#include <kovran/export.h>
#include <kovran/h2645_common/h2645_common_bitreader.h>
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_trace.h>

#include <vector>

namespace kovran {

// user_data_registered_itu_t_t35(), clause D.2.6.
struct h265_nal_sei_user_data_registered_itu_t_t35 {
    static constexpr unsigned int payload_type = 4;
    static constexpr const char* payload_name = "user_data_registered_itu_t_t35";

    unsigned char itu_t_t35_country_code = 0;                 // b(8)
    unsigned char itu_t_t35_country_code_extension_byte = 0;  // b(8), when the code is 0xFF
    std::vector<unsigned char> itu_t_t35_payload_byte;        // b(8), the rest of the payload

    bool valid = false;  // the latest parse succeeded

    // Reads one payload to its end, in a record that is reset first. False, with `valid` false: it
    // has no byte for the country code or for its extension, or there is no memory.
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_fault* fault = nullptr);
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_trace& trace,
                                   h265_fault* fault = nullptr);
};

}  // namespace kovran

#endif  // KOVRAN_H265_SEI_H265_NAL_SEI_USER_DATA_REGISTERED_ITU_T_T35_H
