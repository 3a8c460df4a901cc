#ifndef KOVRAN_TESTS_SUPPORT_SEI_RECORD_PARSING_H
#define KOVRAN_TESTS_SUPPORT_SEI_RECORD_PARSING_H

#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_trace.h>

#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "support/rbsp.h"
#include "support/sei_payload.h"

namespace kovran::test {

template <class Record>
struct parsed_record {
    Record record;
    std::vector<std::string> out_of_range;  // paths of elements
};

// Parses a payload with the functions of its record, which take `arguments` besides the reader.
// Expects it to be read with and without a trace, and no payload at all to be refused.
template <class Record, class... Arguments>
parsed_record<Record> parsed_alone(std::string_view bits, const Arguments&... arguments) {
    const std::vector<unsigned char> payload = bytes_of(bits);
    parsed_record<Record> parsed;
    rbsp input(payload);
    EXPECT_TRUE(parsed.record.parse_standard(input.reader, arguments...));
    EXPECT_TRUE(parsed.record.valid);

    rbsp nothing;
    EXPECT_FALSE(parsed.record.parse_standard(nothing.reader, arguments...));
    EXPECT_FALSE(parsed.record.valid);

    rbsp traced_input(payload);
    h265_trace trace;
    h265_fault fault;
    EXPECT_TRUE(parsed.record.parse_standard(traced_input.reader, arguments..., trace, &fault));
    EXPECT_TRUE(parsed.record.valid);
    EXPECT_EQ(to_string(fault), "no fault");
    for (const h265_traced_element& element : trace.elements) {
        if (element.out_of_range) {
            parsed.out_of_range.push_back(path_of(trace, element));
        }
    }
    return parsed;
}

}  // namespace kovran::test

#endif  // KOVRAN_TESTS_SUPPORT_SEI_RECORD_PARSING_H
