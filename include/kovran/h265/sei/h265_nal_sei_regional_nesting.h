#ifndef KOVRAN_H265_SEI_H265_NAL_SEI_REGIONAL_NESTING_H
#define KOVRAN_H265_SEI_H265_NAL_SEI_REGIONAL_NESTING_H

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

// regional_nesting(), clause D.2.42. Messages, and the regions of the picture that they apply to.
struct h265_nal_sei_regional_nesting {
    static constexpr unsigned int payload_type = 157;
    static constexpr const char* payload_name = "regional_nesting";

    unsigned short regional_nesting_id = 0;               // u(16)
    unsigned char regional_nesting_num_rect_regions = 0;  // u(8)

    // A rectangle, by its distances from the edges of the conformance window, in the units of
    // conf_win_left_offset and the like.
    struct rect_region_t {
        unsigned char regional_nesting_rect_region_id = 0;       // u(8)
        unsigned short regional_nesting_rect_left_offset = 0;    // u(16)
        unsigned short regional_nesting_rect_right_offset = 0;   // u(16)
        unsigned short regional_nesting_rect_top_offset = 0;     // u(16)
        unsigned short regional_nesting_rect_bottom_offset = 0;  // u(16)
    };
    std::vector<rect_region_t> rect_regions;  // regional_nesting_num_rect_regions entries

    // The arrays have num_sei_messages_in_regional_nesting_minus1 + 1 entries: for each message,
    // the regions that it applies to, as indices of rect_regions.
    unsigned char num_sei_messages_in_regional_nesting_minus1 = 0;            // u(8)
    std::vector<unsigned char> num_regions_for_sei_message;                   // u(8)
    std::vector<std::vector<unsigned char>> regional_nesting_sei_region_idx;  // u(8)
    std::vector<h265_nal_sei_message> sei_message;

    bool valid = false;  // the latest parse succeeded

    // Reads one payload, with the messages in it, in a record that is reset first: see
    // h265_nal_sei_message for the stores, and for messages that cannot be read. False, with
    // `valid` false: there are more regions or messages than the data can hold; the payloadType or
    // payloadSize of a message is cut off; the data ends; or there is no memory.
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

#endif  // KOVRAN_H265_SEI_H265_NAL_SEI_REGIONAL_NESTING_H
