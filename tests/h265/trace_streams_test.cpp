// What a traced parse tells of real streams, beside what an independent reader tells of them.
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <ostream>
#include <string>
#include <vector>

#include "inspect/reading_elements.h"
#include "support/rbsp_of_unit.h"
#include "support/stream_reading.h"
#include "support/tracing_host.h"

namespace kovran {
namespace {

using test::expected_element;

std::vector<expected_element> expected_of(const test::unit_reading& unit) {
    return test::elements_of({{"elements", unit.elements}});
}

struct traced_element {
    std::string name;
    std::int64_t value;
    std::size_t bit;
    std::size_t width;

    bool operator==(const traced_element& other) const {
        return name == other.name && value == other.value && bit == other.bit &&
               width == other.width;
    }
};

void PrintTo(const traced_element& each, std::ostream* out) {
    *out << each.name << " = " << each.value << " at " << each.bit << ", " << each.width << " bits";
}

traced_element of_trace(const h265_trace& trace, const h265_traced_element& each,
                        std::size_t first_bit) {
    return {to_string(name_of(trace, each)), each.value, each.first_bit + first_bit, each.width};
}

traced_element of_reading(const expected_element& each) {
    const std::int64_t value = each.value == test::not_read ? 0 : std::stoll(each.value);
    return {each.name, value, each.bit, each.width};
}

// The elements of the reading as a traced parse lists them: the extension of a VPS, which is not
// read, is one element.
std::vector<traced_element> listed(std::vector<expected_element> reading) {
    test::pass_over_extension(reading, "vps_extension_flag");
    test::put_slice_extension_into_bytes(reading);
    std::vector<traced_element> all;
    std::transform(reading.begin(), reading.end(), std::back_inserter(all), of_reading);
    return all;
}

// The same of the messages of an SEI unit that have a record, one after the other.
std::vector<std::vector<traced_element>> listed_messages(
    const std::vector<expected_element>& reading) {
    std::vector<std::vector<traced_element>> messages;
    bool is_listed = false;
    for (const expected_element& each : reading) {
        if (each.name == "last_payload_type_byte") {
            is_listed = test::is_parsed_message(each.value);
            if (is_listed) {
                messages.emplace_back();
            }
        } else if (is_listed && !test::is_sei_framing(each.name) &&
                   !test::is_payload_padding(each.name)) {
            messages.back().push_back(of_reading(each));
        }
    }
    return messages;
}

std::vector<traced_element> elements_of(const test::traced_reading& reading) {
    std::vector<traced_element> all;
    for (const h265_traced_element& each : reading.trace.elements) {
        all.push_back(of_trace(reading.trace, each, reading.first_bit));
    }
    return all;
}

// Tells the first element that differs: a list of some hundred helps nobody.
void expect_elements(const std::vector<traced_element>& elements,
                     const std::vector<traced_element>& expected) {
    const auto [element, other] =
        std::mismatch(elements.begin(), elements.end(), expected.begin(), expected.end());
    if (element != elements.end() && other != expected.end()) {
        EXPECT_EQ(*element, *other);
    }
    EXPECT_EQ(elements.size(), expected.size());
}

std::vector<std::string> out_of_range(const h265_trace& trace) {
    std::vector<std::string> elements;
    for (const h265_traced_element& each : trace.elements) {
        if (each.out_of_range) {
            elements.push_back(path_of(trace, each) + " = " + std::to_string(each.value));
        }
    }
    return elements;
}

// What the encoders wrote against the standard: svt_interlace codes fields, field_seq_flag 1, and
// calls each of them a frame, which table D.2 does not allow.
std::vector<std::string> not_allowed_in(const std::string& stream, h265_nal_unit_type type) {
    if (stream == "svt_interlace" && type == PREFIX_SEI_NUT) {
        return {"pic_struct = 0"};
    }
    return {};
}

// Nobody can read a buffering period whose SPS has no HRD parameters (hrd_novuihrd).
bool is_unreadable(const std::vector<traced_element>& message) {
    return message.size() == 1 && message[0].name == "sei_payload(0)";
}

// NOLINTNEXTLINE(readability-identifier-naming): the name of a suite
class TraceOfStreams : public testing::TestWithParam<std::string> {};

TEST_P(TraceOfStreams, HasTheElementsOfTheReading) {
    const test::stream_reading stream = test::load_stream_reading(GetParam());
    test::tracing_host host;
    for (std::size_t i = 0; i < stream.units.size() && !HasFailure(); ++i) {
        const test::unit_reading& unit = stream.units[i];
        if (unit.nuh_layer_id != 0 || unit.elements.empty()) {
            continue;
        }
        SCOPED_TRACE("unit " + std::to_string(i) + " of type " +
                     std::to_string(unit.nal_unit_type));
        const auto type = static_cast<h265_nal_unit_type>(unit.nal_unit_type);
        const auto readings = host.read(type, test::rbsp_of_unit(stream, unit));
        const std::vector<expected_element> expected = expected_of(unit);
        std::vector<std::vector<traced_element>> structures;
        if (type == PREFIX_SEI_NUT) {
            structures = listed_messages(expected);
        } else if (type != SUFFIX_SEI_NUT && !readings.empty()) {
            structures = {listed(expected)};
        }
        ASSERT_EQ(readings.size(), structures.size());
        for (std::size_t k = 0; k < readings.size(); ++k) {
            if (is_unreadable(structures[k])) {
                EXPECT_FALSE(readings[k].read);
                continue;
            }
            EXPECT_TRUE(readings[k].read) << to_string(readings[k].fault);
            EXPECT_EQ(readings[k].fault.kind, h265_fault_kind::none);
            expect_elements(elements_of(readings[k]), structures[k]);
            EXPECT_EQ(out_of_range(readings[k].trace), not_allowed_in(GetParam(), type));
        }
    }
}

INSTANTIATE_TEST_SUITE_P(AllStreams, TraceOfStreams, testing::ValuesIn(test::stream_names()),
                         [](const testing::TestParamInfo<std::string>& stream) {
                             return stream.param;
                         });

}  // namespace
}  // namespace kovran
