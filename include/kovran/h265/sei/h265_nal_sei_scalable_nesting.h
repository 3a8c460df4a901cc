#ifndef KOVRAN_H265_SEI_H265_NAL_SEI_SCALABLE_NESTING_H
#define KOVRAN_H265_SEI_H265_NAL_SEI_SCALABLE_NESTING_H

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

// scalable_nesting(), clause D.2.24: messages, and the operation points or layers that they apply
// to.
struct h265_nal_sei_scalable_nesting {
    static constexpr unsigned int payload_type = 133;
    static constexpr const char* payload_name = "scalable_nesting";

    bool bitstream_subset_flag = false;  // u(1)
    bool nesting_op_flag = false;        // u(1): operation points; else layers

    // When nesting_op_flag. The arrays have nesting_num_ops_minus1 + 1 entries; with
    // default_op_flag, entry 0 is not in the stream and stands for the layers up to the NAL unit's
    // own, at its TemporalId.
    bool default_op_flag = false;                              // u(1)
    unsigned int nesting_num_ops_minus1 = 0;                   // ue(v)
    std::vector<unsigned char> nesting_max_temporal_id_plus1;  // u(3)
    std::vector<unsigned int> nesting_op_idx;                  // ue(v)

    // Otherwise. With all_layers_flag the messages apply to every layer from the NAL unit's own on.
    bool all_layers_flag = false;                           // u(1)
    unsigned char nesting_no_op_max_temporal_id_plus1 = 0;  // u(3), unless all_layers_flag
    unsigned int nesting_num_layers_minus1 = 0;             // ue(v), likewise
    std::vector<unsigned char> nesting_layer_id;  // u(6), nesting_num_layers_minus1 + 1 entries

    // To the end of the payload. Timing goes by the HRD parameters of the first operation point
    // and, with default_op_flag, by those of the base layer for all of its sub-layers.
    std::vector<h265_nal_sei_message> sei_message;

    bool valid = false;  // the latest parse succeeded

    // Reads one payload, with the messages in it, in a record that is reset first: see
    // h265_nal_sei_message for the stores, and for messages that cannot be read. False, with
    // `valid` false: there are more operation points or layers than 1024 or 64, or than the data
    // can hold; the payloadType or payloadSize of a message is cut off; the data ends; or there is
    // no memory.
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

#endif  // KOVRAN_H265_SEI_H265_NAL_SEI_SCALABLE_NESTING_H
