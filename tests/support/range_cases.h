#ifndef KOVRAN_TESTS_SUPPORT_RANGE_CASES_H
#define KOVRAN_TESTS_SUPPORT_RANGE_CASES_H

#include <kovran/h265/h265_nal.h>

#include <cstdint>
#include <string>
#include <vector>

#include "support/bit_writer.h"

namespace kovran::test {

// One end of an element's range, and a unit in which it is there and another in which it is past
// it. Nothing else in either unit is out of its range, but for what the element itself decides.
struct range_case {
    std::string element;  // with its indices
    std::int64_t lowest;
    std::int64_t highest;
    std::int64_t limit;  // one of the two
    std::int64_t past;
    bit_writer at_limit;  // RBSPs behind the NAL unit header
    bit_writer past_limit;
    bool reserved;  // what is past it is reserved for later editions
};

struct range_unit {
    h265_nal_unit_type type;
    bit_writer rbsp;
};

// The ends of the ranges in one syntax structure. Ends that the code of an element cannot pass are
// not there.
struct range_table {
    std::string structure;
    std::vector<range_unit> parameter_sets;  // that its units go by
    h265_nal_unit_type type;
    std::vector<range_case> cases;
};

// Each structure in a unit of its own; those that are called by others in the first that calls
// them. Elements with several tables have ranges that depend on parameter sets.
std::vector<range_table> range_tables();

}  // namespace kovran::test

#endif  // KOVRAN_TESTS_SUPPORT_RANGE_CASES_H
