#ifndef KOVRAN_FUZZ_MESSAGE_CLAIMS_H
#define KOVRAN_FUZZ_MESSAGE_CLAIMS_H

#include <kovran/kovran.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <variant>

#include "claim.h"
#include "support/allocation_failure.h"

namespace kovran::fuzz {

// What SECURITY.md says of every structure that is read by the standard's rules.
constexpr std::size_t memory_for_any_message = std::size_t{64} << 10;
constexpr std::size_t memory_for_a_byte_of_it = 4096;

inline bool lists_alike(const h265_trace& one, const h265_trace& other) {
    return one.indices == other.indices && one.structures.size() == other.structures.size() &&
           std::equal(one.elements.begin(), one.elements.end(), other.elements.begin(),
                      other.elements.end(), [](const auto& a, const auto& b) {
                          return std::strcmp(a.name, b.name) == 0 && a.first_bit == b.first_bit &&
                                 a.width == b.width && a.value == b.value &&
                                 a.structure == b.structure && a.first_index == b.first_index &&
                                 a.out_of_range == b.out_of_range && a.run == b.run;
                      });
}

inline bool messages_alike(const h265_nal_sei_message& one, const h265_nal_sei_message& other) {
    return one.valid == other.valid && one.payload_type == other.payload_type &&
           one.payload_size == other.payload_size && one.payload.index() == other.payload.index() &&
           one.reserved_payload_extension_data == other.reserved_payload_extension_data;
}

// All bits of the message, one element after the other.
inline bool covers(const h265_trace& trace, const h265_nal_sei_reader& message) {
    std::size_t bit = 0;
    for (const auto& element : trace.elements) {
        if (element.first_bit != bit) {
            return false;
        }
        bit += element.width;
    }
    return bit == 8 * static_cast<std::size_t>(message.payload_end - message.message_begin);
}

inline void claim_message(const h265_nal_sei_reader& message, h265_nal_sei_message& used,
                          const h2645_common_base_store<h265_nal_vps>& vps_store,
                          const h2645_common_base_store<h265_nal_sps>& sps_store) {
    const auto size = static_cast<std::size_t>(message.payload_end - message.message_begin);
    const test::allocation_count before;
    h265_nal_sei_message fresh;
    const bool read = fresh.parse_standard(message, vps_store, sps_store);
    claim(before.bytes() <= memory_for_any_message + memory_for_a_byte_of_it * size,
          "a message takes memory by its size");
    claim(read == fresh.valid, "`valid` is the return value");
    claim(fresh.payload_type == message.payload_type && fresh.payload_size == message.payload_size,
          "a message has the type and the size that the reader has");
    claim(!read || !message.truncated, "a message that is cut off is not read");
    if (const auto* const bytes = std::get_if<h265_nal_sei_reserved_message>(&fresh.payload);
        bytes != nullptr) {
        const auto& kept = bytes->reserved_sei_message_payload_byte;
        claim(std::equal(kept.begin(), kept.end(), message.payload_begin, message.payload_end),
              "what is not taken apart is kept");
    } else {
        claim(read, "what cannot be read is kept as bytes");
    }

    h265_nal_sei_message told;
    h265_trace trace;
    h265_fault fault;
    claim(told.parse_standard(message, vps_store, sps_store, trace, &fault) == read &&
              messages_alike(told, fresh),
          "to tell of a parse changes nothing");
    claim(read || fault.kind != h265_fault_kind::none, "every failure is told");
    claim(covers(trace, message), "the elements of a message follow one another");

    h265_trace of_used;
    claim(used.parse_standard(message, vps_store, sps_store, of_used) == read &&
              messages_alike(used, fresh) && lists_alike(of_used, trace),
          "a used message is read as a fresh one");
}

}  // namespace kovran::fuzz

#endif  // KOVRAN_FUZZ_MESSAGE_CLAIMS_H
