#ifndef KOVRAN_H265_H265_NAL_VPS_H
#define KOVRAN_H265_H265_NAL_VPS_H

#include <kovran/export.h>
#include <kovran/h2645_common/h2645_common_bitreader.h>
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_hrd_parameters.h>
#include <kovran/h265/h265_profile_tier_level.h>
#include <kovran/h265/h265_trace.h>

#include <vector>

namespace kovran {

// video_parameter_set_rbsp(), clause 7.3.2.1. The extension is skipped.
struct h265_nal_vps {
    unsigned char vps_video_parameter_set_id = 0;   // u(4)
    bool vps_base_layer_internal_flag = false;      // u(1)
    bool vps_base_layer_available_flag = false;     // u(1)
    unsigned char vps_max_layers_minus1 = 0;        // u(6)
    unsigned char vps_max_sub_layers_minus1 = 0;    // u(3)
    bool vps_temporal_id_nesting_flag = false;      // u(1)
    unsigned short vps_reserved_0xffff_16bits = 0;  // u(16), as coded

    h265_profile_tier_level profile_tier_level;

    bool vps_sub_layer_ordering_info_present_flag = false;  // u(1)
    // vps_max_sub_layers_minus1 + 1 entries; without the flag only the last is in the stream.
    std::vector<unsigned int> vps_max_dec_pic_buffering_minus1;  // ue(v)
    std::vector<unsigned int> vps_max_num_reorder_pics;          // ue(v)
    std::vector<unsigned int> vps_max_latency_increase_plus1;    // ue(v)

    unsigned char vps_max_layer_id = 0;          // u(6)
    unsigned int vps_num_layer_sets_minus1 = 0;  // ue(v)
    // vps_num_layer_sets_minus1 + 1 rows of vps_max_layer_id + 1 entries, row 0 without any.
    std::vector<std::vector<bool>> layer_id_included_flag;  // u(1)

    bool vps_timing_info_present_flag = false;           // u(1)
    unsigned int vps_num_units_in_tick = 0;              // u(32), when vps_timing_info_present_flag
    unsigned int vps_time_scale = 0;                     // u(32), likewise
    bool vps_poc_proportional_to_timing_flag = false;    // u(1), likewise
    unsigned int vps_num_ticks_poc_diff_one_minus1 = 0;  // ue(v), when that is set
    unsigned int vps_num_hrd_parameters = 0;             // ue(v), when vps_timing_info_present_flag

    // vps_num_hrd_parameters entries.
    std::vector<unsigned int> hrd_layer_set_idx;  // ue(v)
    std::vector<bool> cprms_present_flag;         // u(1) from entry 1 on
    std::vector<h265_hrd_parameters> hrd_parameters;

    bool vps_extension_flag = false;  // u(1)

    bool valid = false;  // of the latest parse that set it: see parse

    // Reads one RBSP; `reader` stands right after the two NAL unit header bytes. Fields of absent
    // elements keep their values. The first HRD structure is read without common information unless
    // you set cprms_present_flag[0] first, which the standard infers.
    //
    // False, with `valid` false: profile_tier_level cannot be read, or the trailing bits are
    // malformed. False, with `valid` unchanged (test the return value): vps_num_layer_sets_minus1
    // is above 127, vps_num_hrd_parameters above 128, an HRD structure cannot be read, or there is
    // no memory. What was read before stays.
    KOVRAN_API bool parse(h2645_common_bitreader& reader);
    KOVRAN_API bool parse(h2645_common_bitreader& reader, h265_trace& trace,
                          h265_fault* fault = nullptr);

    // The same by the standard's own rules, in a record that is reset first. cprms_present_flag[0]
    // is true; an HRD structure without common information has that of the structure before it;
    // ordering information that is coded only for the highest sub-layer applies to all; absent
    // profiles and levels of sub-layers are those of the layer above.
    //
    // False, with `valid` false: vps_max_sub_layers_minus1 is 7, vps_num_layer_sets_minus1 above
    // 1023, vps_num_hrd_parameters above 1024, or either more than the data can hold; one of the
    // structures in the VPS cannot be read; the data ends before the trailing bits; or there is no
    // memory. Malformed trailing bits are a fault, and the VPS is valid.
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_fault* fault = nullptr);
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_trace& trace,
                                   h265_fault* fault = nullptr);
};

}  // namespace kovran

#endif  // KOVRAN_H265_H265_NAL_VPS_H
