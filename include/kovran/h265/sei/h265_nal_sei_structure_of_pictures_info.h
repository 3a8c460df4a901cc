#ifndef KOVRAN_H265_SEI_H265_NAL_SEI_STRUCTURE_OF_PICTURES_INFO_H
#define KOVRAN_H265_SEI_H265_NAL_SEI_STRUCTURE_OF_PICTURES_INFO_H

#include <kovran/export.h>
#include <kovran/h2645_common/h2645_common_bitreader.h>
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_trace.h>

#include <vector>

namespace kovran {

// structure_of_pictures_info(), clause D.2.19.
struct h265_nal_sei_structure_of_pictures_info {
    static constexpr unsigned int payload_type = 128;
    static constexpr const char* payload_name = "structure_of_pictures_info";

    // A picture, in decoding order.
    struct picture_t {
        unsigned char sop_vcl_nut = 0;            // u(6), its nal_unit_type
        unsigned char sop_temporal_id = 0;        // u(3)
        unsigned int sop_short_term_rps_idx = 0;  // ue(v), unless sop_vcl_nut is of an IDR picture
        int sop_poc_delta = 0;  // se(v), from the picture before; not for the first one
    };

    unsigned int sop_seq_parameter_set_id = 0;   // ue(v)
    unsigned int num_entries_in_sop_minus1 = 0;  // ue(v)
    std::vector<picture_t> pictures;             // num_entries_in_sop_minus1 + 1 entries

    bool valid = false;  // the latest parse succeeded

    // Reads one payload up to its last element, in a record that is reset first. False, with
    // `valid` false: there are more pictures than 1024, or than the data can hold; the data ends;
    // or there is no memory.
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_fault* fault = nullptr);
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_trace& trace,
                                   h265_fault* fault = nullptr);
};

}  // namespace kovran

#endif  // KOVRAN_H265_SEI_H265_NAL_SEI_STRUCTURE_OF_PICTURES_INFO_H
