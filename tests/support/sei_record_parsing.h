#ifndef KOVRAN_TESTS_SUPPORT_SEI_RECORD_PARSING_H
#define KOVRAN_TESTS_SUPPORT_SEI_RECORD_PARSING_H

#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_trace.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "support/rbsp.h"
#include "support/sei_payload.h"

namespace kovran::test {

template <class Record>
struct parsed_record {
    Record record;    // read with a trace
    Record untraced;  // read without one
    std::size_t element_count = 0;
    std::string out_of_range;  // the elements that are, as "hours_value[0], minutes_value[0]"
};

// Without a byte there is nothing to read, and the fault says so, with and without a trace.
template <class Record, class... Arguments>
void expect_refused_without_data(Record& record, const Arguments&... arguments) {
    h265_fault fault;
    rbsp nothing;
    EXPECT_FALSE(record.parse_standard(nothing.reader, arguments..., &fault));
    EXPECT_FALSE(record.valid);
    EXPECT_NE(fault.kind, h265_fault_kind::none);

    h265_fault traced_fault;
    h265_trace trace;
    rbsp traced_nothing;
    EXPECT_FALSE(record.parse_standard(traced_nothing.reader, arguments..., trace, &traced_fault));
    EXPECT_FALSE(record.valid);
    EXPECT_EQ(to_string(traced_fault), to_string(fault));
}

// Parses a payload with the functions of its record, which take `arguments` besides the reader.
// Expects it to be read with and without a trace, up to the end of the last traced element, and no
// payload at all to be refused.
template <class Record, class... Arguments>
parsed_record<Record> parsed_alone(std::string_view bits, const Arguments&... arguments) {
    const std::vector<unsigned char> payload = bytes_of(bits);
    parsed_record<Record> parsed;
    rbsp input(payload);
    EXPECT_TRUE(parsed.untraced.parse_standard(input.reader, arguments...));
    EXPECT_TRUE(parsed.untraced.valid);

    parsed.record = parsed.untraced;
    expect_refused_without_data(parsed.record, arguments...);

    rbsp traced_input(payload);
    h265_trace trace;
    h265_fault fault;
    EXPECT_TRUE(parsed.record.parse_standard(traced_input.reader, arguments..., trace, &fault));
    EXPECT_TRUE(parsed.record.valid);
    EXPECT_EQ(to_string(fault), "no fault");
    EXPECT_EQ(traced_input.reader.bit_position(), input.reader.bit_position());

    parsed.element_count = trace.elements.size();
    if (trace.elements.empty()) {
        ADD_FAILURE() << "nothing traced";
        return parsed;
    }
    const h265_traced_element& last = trace.elements.back();
    EXPECT_EQ(last.first_bit + last.width, input.reader.bit_position()) << path_of(trace, last);
    for (const h265_traced_element& element : trace.elements) {
        if (element.out_of_range) {
            parsed.out_of_range += parsed.out_of_range.empty() ? "" : ", ";
            parsed.out_of_range += path_of(trace, element);
        }
    }
    return parsed;
}

template <class Record, class... Arguments>
std::string out_of_range(std::string_view bits, const Arguments&... arguments) {
    return parsed_alone<Record>(bits, arguments...).out_of_range;
}

// A payload without elements is read wherever the data ends, and not behind that.
template <class Record>
void expect_no_elements() {
    EXPECT_TRUE(record_of<Record>("", "").valid);

    Record record;
    rbsp input;
    h265_trace trace;
    EXPECT_TRUE(record.parse_standard(input.reader, trace));
    EXPECT_TRUE(record.valid);
    EXPECT_TRUE(trace.elements.empty());
    EXPECT_TRUE(record.parse_standard(input.reader));
    EXPECT_TRUE(record.valid);

    input.reader.skip(1);
    EXPECT_FALSE(record.parse_standard(input.reader));
    EXPECT_FALSE(record.valid);
}

}  // namespace kovran::test

#endif  // KOVRAN_TESTS_SUPPORT_SEI_RECORD_PARSING_H
