#ifndef KOVRAN_TESTS_INSPECT_ANNEX_B_UNIT_H
#define KOVRAN_TESTS_INSPECT_ANNEX_B_UNIT_H

#include <kovran/h265/h265_nal.h>

#include <string>

#include "support/bit_writer.h"

namespace kovran::test {

// A unit of the base layer with its four-byte start code.
std::string annex_b_unit(h265_nal_unit_type type, const bit_writer& rbsp);

}  // namespace kovran::test

#endif  // KOVRAN_TESTS_INSPECT_ANNEX_B_UNIT_H
