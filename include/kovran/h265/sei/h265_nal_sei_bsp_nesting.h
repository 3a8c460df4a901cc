#ifndef KOVRAN_H265_SEI_H265_NAL_SEI_BSP_NESTING_H
#define KOVRAN_H265_SEI_H265_NAL_SEI_BSP_NESTING_H

#include <kovran/export.h>
#include <kovran/h2645_common/h2645_common_base_store.h>
#include <kovran/h2645_common/h2645_common_bitreader.h>
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_nal_sps.h>
#include <kovran/h265/h265_nal_vps.h>
#include <kovran/h265/h265_trace.h>

#include <vector>

namespace kovran {

struct h265_nal_sei_message;

// bsp_nesting(), clause F.14.2. Messages that apply to a partition of the bitstream.
struct h265_nal_sei_bsp_nesting {
    static constexpr unsigned int payload_type = 162;
    static constexpr const char* payload_name = "bsp_nesting";

    unsigned int sei_ols_idx = 0;                  // ue(v)
    unsigned int sei_partitioning_scheme_idx = 0;  // ue(v)
    unsigned int bsp_idx = 0;                      // ue(v)

    unsigned int num_seis_in_bsp_minus1 = 0;        // ue(v)
    std::vector<h265_nal_sei_message> sei_message;  // num_seis_in_bsp_minus1 + 1 entries

    bool valid = false;  // the latest parse succeeded

    // Reads one payload, with the messages in it, in a record that is reset first: see
    // h265_nal_sei_message for the stores, and for messages that cannot be read. False, with
    // `valid` false: there are more messages than the data can hold; the payloadType or payloadSize
    // of a message is cut off; the data ends; or there is no memory.
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader,
                                   const h2645_common_base_store<h265_nal_vps>& vps_store,
                                   const h2645_common_base_store<h265_nal_sps>& sps_store,
                                   h265_fault* fault = nullptr);
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader,
                                   const h2645_common_base_store<h265_nal_vps>& vps_store,
                                   const h2645_common_base_store<h265_nal_sps>& sps_store,
                                   h265_trace& trace, h265_fault* fault = nullptr);
};

}  // namespace kovran

// The messages are of this type; it holds a record like the one above in its turn.
#include <kovran/h265/sei/h265_nal_sei_message.h>  // IWYU pragma: keep

#endif  // KOVRAN_H265_SEI_H265_NAL_SEI_BSP_NESTING_H
