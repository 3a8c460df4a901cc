#ifndef KOVRAN_H265_SEI_H265_NAL_SEI_MCTS_EXTRACTION_INFO_NESTING_H
#define KOVRAN_H265_SEI_H265_NAL_SEI_MCTS_EXTRACTION_INFO_NESTING_H

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

// mcts_extraction_info_nesting(), clause D.2.44. Messages for streams that have motion-constrained
// tile sets alone.
struct h265_nal_sei_mcts_extraction_info_nesting {
    static constexpr unsigned int payload_type = 159;
    static constexpr const char* payload_name = "mcts_extraction_info_nesting";

    bool all_mcts_flag = false;                        // u(1)
    unsigned int num_associated_mcts_minus1 = 0;       // ue(v), unless all_mcts_flag
    std::vector<unsigned int> idx_of_associated_mcts;  // ue(v), likewise

    unsigned int num_sei_messages_in_mcts_extraction_nesting_minus1 = 0;  // ue(v)
    std::vector<h265_nal_sei_message> sei_message;                        // of that number, plus 1

    bool valid = false;  // the latest parse succeeded

    // Reads one payload, with the messages in it, in a record that is reset first: see
    // h265_nal_sei_message for the stores, and for messages that cannot be read. False, with
    // `valid` false: there are more tile sets or messages than the data can hold; the payloadType
    // or payloadSize of a message is cut off; the data ends; or there is no memory.
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

#endif  // KOVRAN_H265_SEI_H265_NAL_SEI_MCTS_EXTRACTION_INFO_NESTING_H
