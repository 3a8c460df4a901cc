// What a traced parse says of values at the ends of their ranges, and past them.
#include <gtest/gtest.h>

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

// Whether an element of this name is listed with the value.
bool lists(const test::traced_reading& reading, const std::string& name, std::int64_t value,
           bool out_of_range) {
    for (std::size_t i = reading.find(name); i < reading.trace.elements.size();
         i = reading.find(name, i + 1)) {
        const h265_traced_element& element = reading.trace.elements[i];
        if (element.value == value && element.out_of_range == out_of_range) {
            return true;
        }
    }
    return false;
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
            EXPECT_TRUE(lists(at_limit, each.element, each.limit, /*out_of_range=*/false));

            const test::traced_reading past = read_unit(table, each.past_limit);
            EXPECT_TRUE(lists(past, each.element, each.past, /*out_of_range=*/true))
                << "value " << each.past;
            if (past.fault.kind == h265_fault_kind::value) {
                EXPECT_TRUE(is_named(past.fault, each.element)) << to_string(past.fault);
                EXPECT_EQ(past.fault.value, each.past);
                EXPECT_EQ(past.fault.lowest, each.lowest);
                EXPECT_EQ(past.fault.highest, each.highest);
            } else if (!past.read) {
                // A distance that a set can have, but none of its pictures.
                EXPECT_EQ(past.fault.kind, h265_fault_kind::contradiction);
                EXPECT_EQ(each.element, "abs_delta_rps_minus1");
            }
        }
    }
}

}  // namespace
}  // namespace kovran
