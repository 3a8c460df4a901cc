#ifndef KOVRAN_TESTS_SUPPORT_SEI_PAYLOAD_H
#define KOVRAN_TESTS_SUPPORT_SEI_PAYLOAD_H

#include <kovran/h2645_common/h2645_common_base_store.h>
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_nal_sps.h>
#include <kovran/h265/h265_nal_vps.h>
#include <kovran/h265/sei/h265_nal_sei_message.h>

#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include <gtest/gtest.h>

namespace kovran::test {

// The parameter sets that messages are read with; none when a payload needs none.
struct sei_stores {
    h2645_common_base_store<h265_nal_vps> vps;
    h2645_common_base_store<h265_nal_sps> sps;
};

// Bits written out as the syntax has them, "00111 1 0", with hexadecimal bytes as "x4a". Zeros fill
// the last byte.
std::vector<unsigned char> bytes_of(std::string_view bits);

// The message of a type with this payload, behind payloadType and payloadSize.
std::vector<unsigned char> message_of(unsigned int payload_type,
                                      const std::vector<unsigned char>& payload);

// Whether all elements must be there and extension data can follow the last one, or the syntax
// takes the bytes that there are, as texts of any length and messages within a message do.
enum class payload_end { extensible, takes_all };

// What reading a message gives.
struct sei_reading {
    bool read = false;
    h265_nal_sei_message message;
    h265_fault fault;
    // The elements behind payloadSize, a line each: "recovery_poc_cnt -3", within structures with
    // their path, runs of bytes, texts and u(128) with their bytes: "data_byte[0..1] 4a4b".
    std::string elements;
};

// Reads the payload and, without a trace or a fault, once more, with the same outcome. What cannot
// be read has a fault.
sei_reading read_payload(unsigned int payload_type, const std::vector<unsigned char>& payload,
                         const sei_stores& stores = {});

// A payload whose bits end where its last element does, and all that must be read from it. Expects
// these elements, in the order of their bits and without gaps; that every one of them is missed
// when it is cut off, and the bytes kept then; that extension data behind them is kept; that a
// message used before, for the same type and another one, reads the same; and that a failing
// allocation, whichever it is, leaves the message not valid and leaks nothing.
sei_reading expect_payload(unsigned int payload_type, std::string_view bits,
                           std::string_view elements, const sei_stores& stores = {},
                           payload_end end = payload_end::extensible);

// A payload that cannot be read. Expects its bytes to be kept; gives the fault as text.
std::string refusal_of(unsigned int payload_type, std::string_view bits,
                       const sei_stores& stores = {});

// The record of a payload as expect_payload() reads it.
template <class Record>
Record record_of(std::string_view bits, std::string_view elements, const sei_stores& stores = {},
                 payload_end end = payload_end::extensible) {
    const sei_reading reading = expect_payload(Record::payload_type, bits, elements, stores, end);
    const auto* const record = std::get_if<Record>(&reading.message.payload);
    EXPECT_NE(record, nullptr);
    return record != nullptr ? *record : Record{};
}

}  // namespace kovran::test

#endif  // KOVRAN_TESTS_SUPPORT_SEI_PAYLOAD_H
