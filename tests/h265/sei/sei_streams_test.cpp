// Every SEI message of real streams beside what independent readers tell of it.
#include <kovran/h265/sei/h265_nal_sei_message.h>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "support/rbsp_of_unit.h"
#include "support/stream_reading.h"
#include "support/tracing_host.h"

namespace kovran {
namespace {

constexpr std::size_t header_bits = 16;

struct message_element {
    std::string name;
    std::string value;  // bytes in hexadecimal
    std::size_t bit;    // counted from the first one of the NAL unit header
    std::size_t width;

    bool operator==(const message_element& other) const {
        return name == other.name && value == other.value && bit == other.bit &&
               width == other.width;
    }
};

void PrintTo(const message_element& each, std::ostream* out) {
    *out << each.name << " = " << each.value << " at " << each.bit << ", " << each.width << " bits";
}

using message_elements = std::vector<message_element>;

std::string hexadecimal(std::uint64_t byte) {
    constexpr std::string_view digits = "0123456789abcdef";
    return {digits[byte / 16 % 16], digits[byte % 16]};
}

bool begins_with(const std::string& name, std::string_view beginning) {
    return name.compare(0, beginning.size(), beginning) == 0;
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
        digits += hexadecimal(first[i]);
    }
    return digits;
}

// A payload that cannot be taken apart, as the readings have it.
std::string opaque_name(const h265_nal_sei_message& message) {
    return "sei_payload(" + std::to_string(message.payload_type) + ')';
}

message_elements elements_of(const h265_nal_sei_message& message, const h265_trace& trace,
                             const unsigned char* rbsp) {
    constexpr std::string_view opaque = "reserved_sei_message_payload_byte";
    message_elements all;
    for (const h265_traced_element& each : trace.elements) {
        all.push_back({each.name == opaque ? opaque_name(message) : to_string(name_of(trace, each)),
                       value_in_trace(each, rbsp), each.first_bit + header_bits, each.width});
        if (each.name == std::string_view("ff_byte") && each.run != 0) {
            // The readings have the bytes of filler_payload() one by one.
            const message_element run = all.back();
            all.pop_back();
            for (std::size_t i = 0; i < each.run; ++i) {
                all.push_back({"ff_byte", "255", run.bit + 8 * i, 8});
            }
        }
    }
    return all;
}

// ---- What the readings tell

// Of a unit, up to its trailing bits. One reader has other names for the bits that close a payload,
// and the bytes of user data one by one.
message_elements elements_of_reading(const nlohmann::json& reading) {
    message_elements all;
    for (const nlohmann::json& each : reading) {
        message_element next = {
            each.at(0), each.at(1).is_string() ? each.at(1).get<std::string>() : each.at(1).dump(),
            each.at(2), each.at(3)};
        if (begins_with(next.name, "bit_equal_to_")) {
            next.name.insert(0, "payload_");
        }
        if (begins_with(next.name, "rbsp_")) {
            break;
        }
        const std::string base = next.name.substr(0, next.name.find('['));
        if ((base == "uuid_iso_iec_11578" || base == "user_data_payload_byte") &&
            each.at(1).is_number()) {
            next.name = base;
            next.value = hexadecimal(each.at(1).get<std::uint64_t>());
            if (!all.empty() && all.back().name == base) {
                all.back().value += next.value;
                all.back().width += next.width;
                continue;
            }
        }
        all.push_back(next);
    }
    for (message_element& each : all) {
        if (each.name == "user_data_payload_byte") {
            each.name += "[0.." + std::to_string(each.width / 8 - 1) + ']';
        }
    }
    return all;
}

// One reader leaves the 0xFF bytes of sizes out, and the text behind some UUIDs.
void leave_out_what_is_missing(message_elements& elements, const message_elements& reading) {
    for (const std::string_view left_out : {"ff_byte", "user_data_payload_byte"}) {
        const auto is_left_out = [left_out](const message_element& each) {
            return begins_with(each.name, left_out);
        };
        if (std::none_of(reading.begin(), reading.end(), is_left_out)) {
            elements.erase(std::remove_if(elements.begin(), elements.end(), is_left_out),
                           elements.end());
        }
    }
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
                const message_elements more = elements_of(message, trace, rbsp.data());
                elements.insert(elements.end(), more.begin(), more.end());
            }
            const message_elements reading = elements_of_reading(unit.elements);
            leave_out_what_is_missing(elements, reading);
            const auto [element, other] =
                std::mismatch(elements.begin(), elements.end(), reading.begin(), reading.end());
            if (element != elements.end() && other != reading.end()) {
                EXPECT_EQ(*element, *other);
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
