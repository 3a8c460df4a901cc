// What a traced parse says of values at the ends of their ranges, and past them.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "support/range_cases.h"
#include "support/tracing_host.h"

namespace kovran {
namespace {

test::traced_reading read_unit(const test::range_table& table, const test::bit_writer& bits) {
    test::tracing_host host;
    for (const test::range_unit& unit : table.parameter_sets) {
        EXPECT_TRUE(host.read(unit.type, unit.rbsp.bytes()).at(0).read);
    }
    host.sps_store.active_id = 0;
    return host.read(table.type, bits.bytes()).at(0);
}

// Past the end of a range. What is refused for another element's sake is told of that one.
enum class outcome { noticed, refused, missed };

outcome past_limit(const test::range_case& each, const test::traced_reading& reading) {
    for (std::size_t i = reading.find(each.element); i < reading.trace.elements.size();
         i = reading.find(each.element, i + 1)) {
        const h265_traced_element& element = reading.trace.elements[i];
        if (element.value == each.past && element.out_of_range) {
            return reading.read ? outcome::noticed : outcome::refused;
        }
    }
    return outcome::missed;
}

std::vector<std::string> out_of_range(const h265_trace& trace) {
    std::vector<std::string> names;
    for (const h265_traced_element& element : trace.elements) {
        if (element.out_of_range) {
            names.push_back(path_of(trace, element));
        }
    }
    return names;
}

bool is_named(const h265_fault& fault, const std::string& element) {
    const std::string name = to_string(fault.element);
    return name == element || name.substr(0, name.find('[')) == element;
}

TEST(TraceRanges, AreThoseOfTheStandard) {
    for (const test::range_table& table : test::range_tables()) {
        for (const test::range_case& each : table.cases) {
            SCOPED_TRACE(table.structure + ": " + each.element + " of " +
                         std::to_string(each.lowest) + " to " + std::to_string(each.highest));

            const test::traced_reading at_limit = read_unit(table, each.at_limit);
            EXPECT_TRUE(at_limit.read) << to_string(at_limit.fault);
            EXPECT_EQ(out_of_range(at_limit.trace), std::vector<std::string>());
            bool is_there = false;
            for (std::size_t i = at_limit.find(each.element); i < at_limit.trace.elements.size();
                 i = at_limit.find(each.element, i + 1)) {
                is_there = is_there || at_limit.trace.elements[i].value == each.limit;
            }
            EXPECT_TRUE(is_there);

            const test::traced_reading past = read_unit(table, each.past_limit);
            EXPECT_NE(past_limit(each, past), outcome::missed) << "value " << each.past;
            if (!past.read) {
                EXPECT_EQ(past.fault.kind, h265_fault_kind::value) << to_string(past.fault);
                EXPECT_TRUE(is_named(past.fault, each.element)) << to_string(past.fault);
                EXPECT_EQ(past.fault.value, each.past);
                EXPECT_EQ(past.fault.lowest, each.lowest);
                EXPECT_EQ(past.fault.highest, each.highest);
            }
        }
    }
}

}  // namespace
}  // namespace kovran
