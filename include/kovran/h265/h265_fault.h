#ifndef KOVRAN_H265_H265_FAULT_H
#define KOVRAN_H265_H265_FAULT_H

#include <kovran/h2645_common/h2645_common_fault.h>

namespace kovran {

// Every parse_standard takes a fault as its optional last argument. After false the fault says
// where reading stopped and why. The record has what was read up to there, and its other fields are
// those of a fresh record; all fields are when memory ran out. After true the fault's kind is none,
// or trailing_bits for a parameter set that was read to its end.
//
// A record that was used before keeps the memory of its arrays and nothing else.
using h265_fault = h2645_common_fault;
using h265_fault_kind = h2645_common_fault_kind;

}  // namespace kovran

#endif  // KOVRAN_H265_H265_FAULT_H
