#ifndef KOVRAN_H265_SEI_H265_NAL_SEI_LAYERS_NOT_PRESENT_H
#define KOVRAN_H265_SEI_H265_NAL_SEI_LAYERS_NOT_PRESENT_H

#include <kovran/export.h>
#include <kovran/h2645_common/h2645_common_base_store.h>
#include <kovran/h2645_common/h2645_common_bitreader.h>
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_nal_vps.h>
#include <kovran/h265/h265_trace.h>

#include <vector>

namespace kovran {

// layers_not_present(), clause F.14.2.
struct h265_nal_sei_layers_not_present {
    static constexpr unsigned int payload_type = 160;
    static constexpr const char* payload_name = "layers_not_present";

    unsigned char lnp_sei_active_vps_id = 0;   // u(4)
    std::vector<bool> layer_not_present_flag;  // u(1), an entry for each layer of that VPS

    bool valid = false;  // the latest parse succeeded

    // Reads one payload up to its last element, in a record that is reset first. False, with
    // `valid` false: the VPS is missing; the data ends; or there is no memory.
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader,
                                   const h2645_common_base_store<h265_nal_vps>& vps_store,
                                   h265_fault* fault = nullptr);
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader,
                                   const h2645_common_base_store<h265_nal_vps>& vps_store,
                                   h265_trace& trace, h265_fault* fault = nullptr);
};

}  // namespace kovran

#endif  // KOVRAN_H265_SEI_H265_NAL_SEI_LAYERS_NOT_PRESENT_H
