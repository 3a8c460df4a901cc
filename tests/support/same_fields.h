#ifndef KOVRAN_TESTS_SUPPORT_SAME_FIELDS_H
#define KOVRAN_TESTS_SUPPORT_SAME_FIELDS_H

#include <gtest/gtest.h>

#include <string>

#include "support/record_fields.h"

namespace kovran::test {

// For EXPECT_TRUE: every field equals that of `expected`, to the last entry of every array.
template <class Record>
testing::AssertionResult same_fields(const Record& record, const Record& expected) {
    const std::string found = difference(record, expected);
    return found.empty() ? testing::AssertionSuccess() : testing::AssertionFailure() << found;
}

}  // namespace kovran::test

#endif  // KOVRAN_TESTS_SUPPORT_SAME_FIELDS_H
