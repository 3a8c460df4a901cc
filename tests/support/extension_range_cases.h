#ifndef KOVRAN_TESTS_SUPPORT_EXTENSION_RANGE_CASES_H
#define KOVRAN_TESTS_SUPPORT_EXTENSION_RANGE_CASES_H

#include <vector>

#include "support/range_cases.h"

namespace kovran::test {

// Of the extensions of SPS and PPS. Ends at which an extension is not read at all, but kept as
// extension data, are not there.
std::vector<range_table> extension_range_tables();

}  // namespace kovran::test

#endif  // KOVRAN_TESTS_SUPPORT_EXTENSION_RANGE_CASES_H
