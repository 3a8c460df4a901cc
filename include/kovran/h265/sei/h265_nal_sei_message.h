#ifndef KOVRAN_H265_SEI_H265_NAL_SEI_MESSAGE_H
#define KOVRAN_H265_SEI_H265_NAL_SEI_MESSAGE_H

#include <kovran/export.h>
#include <kovran/h2645_common/h2645_common_base_store.h>
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_nal.h>
#include <kovran/h265/h265_nal_sei_reader.h>
#include <kovran/h265/h265_nal_sps.h>
#include <kovran/h265/h265_nal_vps.h>
#include <kovran/h265/h265_trace.h>
#include <kovran/h265/sei/h265_nal_sei_payload.h>

#include <vector>

namespace kovran {

// An SEI message, sei_message(), clause 7.3.5, of whatever type.
//
//     h265_nal_sei_message message;
//     while (messages.next_message()) {
//         message.parse_standard(messages, vps_store, sps_store);
//         if (auto* light = std::get_if<h265_nal_sei_content_light_level_info>(&message.payload)) {
//             ...
struct h265_nal_sei_message {
    static constexpr unsigned int most_nestings = 4;  // of nesting messages, one within the other

    unsigned int payload_type = h265_nal_sei_payload_type_none;
    unsigned int payload_size = 0;  // in bytes, as coded

    // The record of payload_type. An h265_nal_sei_reserved_message holds the bytes of a payload
    // whose type has none, or which could not be read.
    h265_nal_sei_payload payload;

    // u(v), bit by bit: what follows the last element that this edition of the standard knows.
    std::vector<bool> reserved_payload_extension_data;

    bool valid = false;  // the payload was read; true also for types that have no record

    // Reads the message that `message` stands on, by its type, in whichever kind of SEI NAL unit it
    // is. Parameter sets are looked up as the payload's clause says: the SPS is the store's active
    // one, but for buffering_period(), which names its own. Arrays keep their memory when the
    // message before had the same type and was read; arrays within their entries do not.
    //
    // False, with `valid` false and the payload kept as bytes: the payload is cut off or too short,
    // a value or a count is out of its range, a parameter set is missing, or there is no memory.
    // The same of a message within a nesting one leaves that one valid; the fault then is told, and
    // the result is true.
    KOVRAN_API bool parse_standard(const h265_nal_sei_reader& message,
                                   const h2645_common_base_store<h265_nal_vps>& vps_store,
                                   const h2645_common_base_store<h265_nal_sps>& sps_store,
                                   h265_fault* fault = nullptr);
    // The trace begins with payloadType and payloadSize. Its bits, and those of a fault, are
    // counted from where the message begins.
    KOVRAN_API bool parse_standard(const h265_nal_sei_reader& message,
                                   const h2645_common_base_store<h265_nal_vps>& vps_store,
                                   const h2645_common_base_store<h265_nal_sps>& sps_store,
                                   h265_trace& trace, h265_fault* fault = nullptr);
};

// The standard's name of a payload type, for display; "" for a type that has no record. Unlike
// h265_nal_sei_payload_type_to_str() it does not ask for the kind of NAL unit.
[[nodiscard]] KOVRAN_API const char* h265_nal_sei_payload_name(unsigned int payload_type);

// Whether clause D.2.1 has the payload type in this kind of SEI NAL unit, in which a number that it
// does not have there is reserved. True for types that have no record. parse_standard() reads
// messages by their type in either kind.
[[nodiscard]] KOVRAN_API bool h265_nal_sei_payload_is_in(unsigned int payload_type,
                                                         h265_nal_unit_type nal_unit_type);

}  // namespace kovran

#endif  // KOVRAN_H265_SEI_H265_NAL_SEI_MESSAGE_H
