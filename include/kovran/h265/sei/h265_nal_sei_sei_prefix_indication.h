#ifndef KOVRAN_H265_SEI_H265_NAL_SEI_SEI_PREFIX_INDICATION_H
#define KOVRAN_H265_SEI_H265_NAL_SEI_SEI_PREFIX_INDICATION_H

#include <kovran/export.h>
#include <kovran/h2645_common/h2645_common_bitreader.h>
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_trace.h>

#include <vector>

namespace kovran {

// sei_prefix_indication(), clause D.2.46.
struct h265_nal_sei_sei_prefix_indication {
    static constexpr unsigned int payload_type = 201;
    static constexpr const char* payload_name = "sei_prefix_indication";

    // The first bits of a payload of prefix_sei_payload_type.
    struct sei_prefix_t {
        unsigned short num_bits_in_prefix_indication_minus1 = 0;  // u(16)
        std::vector<bool> sei_prefix_data_bit;                    // u(1), one more than that
    };

    unsigned short prefix_sei_payload_type = 0;           // u(16)
    unsigned char num_sei_prefix_indications_minus1 = 0;  // u(8)
    std::vector<sei_prefix_t> sei_prefixes;  // num_sei_prefix_indications_minus1 + 1 entries

    bool valid = false;  // the latest parse succeeded

    // Reads one payload up to its last element, in a record that is reset first. False, with
    // `valid` false: there are more prefixes, or bits of one, than the data can hold, the data
    // ends, or there is no memory.
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_fault* fault = nullptr);
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_trace& trace,
                                   h265_fault* fault = nullptr);
};

}  // namespace kovran

#endif  // KOVRAN_H265_SEI_H265_NAL_SEI_SEI_PREFIX_INDICATION_H
