#ifndef KOVRAN_H265_H265_NAL_SEI_PIC_TIMING_H
#define KOVRAN_H265_H265_NAL_SEI_PIC_TIMING_H

#include <kovran/export.h>
#include <kovran/h2645_common/h2645_common_base_store.h>
#include <kovran/h2645_common/h2645_common_bitreader.h>
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_nal_sps.h>
#include <kovran/h265/h265_trace.h>

#include <vector>

namespace kovran {

// pic_timing(), clause D.2.3.
struct h265_nal_sei_pic_timing {
    static constexpr unsigned int payload_type = 1;
    static constexpr const char* payload_name = "pic_timing";

    unsigned char pic_struct = 0;        // u(4), when frame_field_info_present_flag
    unsigned char source_scan_type = 0;  // u(2), likewise
    bool duplicate_flag = false;         // u(1), likewise

    unsigned int au_cpb_removal_delay_minus1 = 0;  // u(v), when cpb_dpb_delays_present
    unsigned int pic_dpb_output_delay = 0;         // u(v), likewise
    unsigned int pic_dpb_output_du_delay = 0;      // u(v), when sub_pic_hrd_params_present_flag

    // Decoding unit information; the arrays have num_decoding_units_minus1 + 1 entries.
    unsigned int num_decoding_units_minus1 = 0;                     // ue(v)
    bool du_common_cpb_removal_delay_flag = false;                  // u(1)
    unsigned int du_common_cpb_removal_delay_increment_minus1 = 0;  // u(v), when that is set
    std::vector<unsigned int> num_nalus_in_du_minus1;               // ue(v)
    std::vector<unsigned int>
        du_cpb_removal_delay_increment_minus1;  // u(v), unless common; not for the last

    bool du_info_present = false;         // decoding unit information was read at least once
    bool cpb_dpb_delays_present = false;  // CpbDpbDelaysPresentFlag

    bool valid = false;  // a parse has succeeded and no active SPS was missing since

    // Reads one payload, by the VUI and HRD parameters of `sps`, unchecked: their presence flags
    // and `valid` are ignored. Fields of absent elements keep their values.
    //
    // False, with `valid` unchanged (test the return value) and du_info_present set:
    // num_decoding_units_minus1 is above 127, or there is no memory.
    KOVRAN_API bool parse(h2645_common_bitreader& reader, const h265_nal_sps& sps);
    KOVRAN_API bool parse(h2645_common_bitreader& reader, const h265_nal_sps& sps,
                          h265_trace& trace, h265_fault* fault = nullptr);

    // The same with the store's active SPS. False, with `valid` false, when there is none.
    KOVRAN_API bool parse(h2645_common_bitreader& reader,
                          const h2645_common_base_store<h265_nal_sps>& store);
    KOVRAN_API bool parse(h2645_common_bitreader& reader,
                          const h2645_common_base_store<h265_nal_sps>& store, h265_trace& trace,
                          h265_fault* fault = nullptr);

    // The same two by the standard's own rules, in a record that is reset first: decoding unit
    // information is present when both sub-picture flags are set, and an absent source_scan_type
    // follows from the general profile's source flags. False, with `valid` false, when there are
    // more decoding units than the picture has coding tree blocks (139,264 at the most) or than the
    // data can hold, no active SPS, or no memory, or the data ends.
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, const h265_nal_sps& sps,
                                   h265_fault* fault = nullptr);
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, const h265_nal_sps& sps,
                                   h265_trace& trace, h265_fault* fault = nullptr);
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader,
                                   const h2645_common_base_store<h265_nal_sps>& store,
                                   h265_fault* fault = nullptr);
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader,
                                   const h2645_common_base_store<h265_nal_sps>& store,
                                   h265_trace& trace, h265_fault* fault = nullptr);

    // pic_struct and source_scan_type in words, tables D.2 and D.3; "?" for reserved values, never
    // null.
    [[nodiscard]] KOVRAN_API const char* pic_struct_to_str() const;
    [[nodiscard]] KOVRAN_API const char* source_scan_type_to_str() const;
};

}  // namespace kovran

#endif  // KOVRAN_H265_H265_NAL_SEI_PIC_TIMING_H
