#ifndef KOVRAN_H265_H265_NAL_SEI_ACTIVE_PARAMETER_SETS_H
#define KOVRAN_H265_H265_NAL_SEI_ACTIVE_PARAMETER_SETS_H

#include <kovran/export.h>
#include <kovran/h2645_common/h2645_common_base_store.h>
#include <kovran/h2645_common/h2645_common_bitreader.h>
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_nal_vps.h>
#include <kovran/h265/h265_trace.h>

#include <vector>

namespace kovran {

// active_parameter_sets(), clause D.2.21.
struct h265_nal_sei_active_parameter_sets {
    static constexpr unsigned int payload_type = 129;
    static constexpr const char* payload_name = "active_parameter_sets";

    unsigned char active_video_parameter_set_id = 0;        // u(4)
    bool self_contained_cvs_flag = false;                   // u(1)
    bool no_parameter_set_update_flag = false;              // u(1)
    unsigned int num_sps_ids_minus1 = 0;                    // ue(v)
    std::vector<unsigned int> active_seq_parameter_set_id;  // ue(v), num_sps_ids_minus1 + 1 entries
    std::vector<unsigned int> layer_sps_idx;  // ue(v), vps_max_layers_minus1 + 1 entries

    bool valid = false;  // the latest parse succeeded

    // Reads one payload. Of the VPS it uses vps_base_layer_internal_flag and vps_max_layers_minus1;
    // with the flag set, entry 0 of layer_sps_idx is not in the stream. Nothing is inserted into
    // `vps_store`.
    //
    // False, with `valid` false: the VPS is not in the store, num_sps_ids_minus1 or the VPS's
    // vps_max_layers_minus1 is above 127, or there is no memory. What was read before stays.
    KOVRAN_API bool parse(h2645_common_bitreader& reader,
                          h2645_common_base_store<h265_nal_vps>& vps_store);
    KOVRAN_API bool parse(h2645_common_bitreader& reader,
                          h2645_common_base_store<h265_nal_vps>& vps_store, h265_trace& trace,
                          h265_fault* fault = nullptr);

    // The same by the standard's own rules, in a record that is reset first: layers count up to 62.
    // False, with `valid` false: the VPS is not in the store, num_sps_ids_minus1 or an SPS
    // identifier is above 15, the data ends, or there is no memory.
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader,
                                   h2645_common_base_store<h265_nal_vps>& vps_store,
                                   h265_fault* fault = nullptr);
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader,
                                   h2645_common_base_store<h265_nal_vps>& vps_store,
                                   h265_trace& trace, h265_fault* fault = nullptr);
};

}  // namespace kovran

#endif  // KOVRAN_H265_H265_NAL_SEI_ACTIVE_PARAMETER_SETS_H
