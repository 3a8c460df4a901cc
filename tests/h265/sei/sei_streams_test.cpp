// Every SEI message of real streams beside what independent readers tell of it.
#include <kovran/h265/sei/h265_nal_sei_message.h>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "inspect/reading_elements.h"
#include "support/rbsp_of_unit.h"
#include "support/stream_reading.h"
#include "support/tracing_host.h"

namespace kovran {
namespace {

using test::expected_element;
using message_elements = std::vector<expected_element>;

bool alike(const expected_element& one, const expected_element& other) {
    return one.name == other.name && one.value == other.value && one.bit == other.bit &&
           one.width == other.width;
}

std::string text_of(const expected_element& each) {
    return each.name + " = " + each.value + " at " + std::to_string(each.bit) + ", " +
           std::to_string(each.width) + " bits";
}

// ---- What kovran tells

std::string value_in_trace(const h265_traced_element& element, const unsigned char* rbsp) {
    const unsigned char* const first = rbsp + element.first_bit / 8;
    const bool is_text = std::string_view(element.descriptor) == "st(v)";
    if (is_text) {
        return {reinterpret_cast<const char*>(first), element.width / 8 - 1};
    }
    if (element.run == 0 && element.width <= 63) {
        return std::to_string(element.value);
    }
    std::string digits;
    for (std::size_t i = 0; i < element.width / 8; ++i) {
        constexpr std::string_view of_nibble = "0123456789abcdef";
        digits += of_nibble[first[i] / 16];
        digits += of_nibble[first[i] % 16];
    }
    return digits;
}

// A payload that cannot be taken apart, as the readings have it.
std::string opaque_name(const h265_nal_sei_message& message) {
    return "sei_payload(" + std::to_string(message.payload_type) + ')';
}

// A trace counts bits from where the message begins.
message_elements elements_of(const h265_nal_sei_message& message, const h265_trace& trace,
                             const unsigned char* rbsp, const unsigned char* message_begin) {
    const std::size_t first_bit = 8 * static_cast<std::size_t>(message_begin - rbsp);
    constexpr std::string_view opaque = "reserved_sei_message_payload_byte";
    message_elements all;
    for (const h265_traced_element& each : trace.elements) {
        all.push_back({each.name == opaque ? opaque_name(message) : to_string(name_of(trace, each)),
                       value_in_trace(each, message_begin), each.first_bit + first_bit,
                       each.width});
        if (each.name == std::string_view("ff_byte") && each.run != 0) {
            // The readings have the bytes of filler_payload() one by one.
            const expected_element run = all.back();
            all.pop_back();
            for (std::size_t i = 0; i < each.run; ++i) {
                all.push_back(
                    {"ff_byte", std::to_string(rbsp[run.bit / 8 + i]), run.bit + 8 * i, 8});
            }
        }
    }
    return all;
}

// ---- The comparison

bool is_sei(const test::unit_reading& unit) {
    return unit.nal_unit_type == PREFIX_SEI_NUT || unit.nal_unit_type == SUFFIX_SEI_NUT;
}

// NOLINTNEXTLINE(readability-identifier-naming): the name of a suite
class SeiStreams : public testing::TestWithParam<std::string> {};

TEST_P(SeiStreams, HaveTheMessagesOfTheReading) {
    const test::stream_reading stream = test::load_stream_reading(GetParam());
    test::tracing_host host;
    h265_nal_sei_message message;
    for (std::size_t i = 0; i < stream.units.size() && !HasFailure(); ++i) {
        const test::unit_reading& unit = stream.units[i];
        if (unit.nuh_layer_id != 0 || unit.elements.empty()) {
            continue;
        }
        const auto type = static_cast<h265_nal_unit_type>(unit.nal_unit_type);
        std::vector<unsigned char> rbsp = test::rbsp_of_unit(stream, unit);
        if (is_sei(unit)) {
            SCOPED_TRACE("unit " + std::to_string(i));
            message_elements elements;
            h265_nal_sei_reader messages(rbsp.data(), rbsp.data() + rbsp.size(), type);
            while (messages.next_message()) {
                h265_trace trace;
                static_cast<void>(
                    message.parse_standard(messages, host.vps_store, host.sps_store, trace));
                const message_elements more =
                    elements_of(message, trace, rbsp.data(), messages.message_begin);
                elements.insert(elements.end(), more.begin(), more.end());
            }
            const message_elements reading =
                test::message_elements_of({{"elements", unit.elements}});
            elements.erase(std::remove_if(elements.begin(), elements.end(),
                                          [&reading](const expected_element& each) {
                                              return test::is_left_out(each.name, reading);
                                          }),
                           elements.end());
            const auto [element, other] = std::mismatch(elements.begin(), elements.end(),
                                                        reading.begin(), reading.end(), alike);
            if (element != elements.end() && other != reading.end()) {
                EXPECT_EQ(text_of(*element), text_of(*other));
            }
            EXPECT_EQ(elements.size(), reading.size());
        }
        host.read(type, rbsp);
    }
}

INSTANTIATE_TEST_SUITE_P(AllStreams, SeiStreams, testing::ValuesIn(test::stream_names()),
                         [](const testing::TestParamInfo<std::string>& stream) {
                             return stream.param;
                         });

}  // namespace
}  // namespace kovran
