#ifndef KOVRAN_H265_H265_FAULT_H
#define KOVRAN_H265_H265_FAULT_H

#include <kovran/h2645_common/h2645_common_fault.h>

namespace kovran {

// Every parse_standard takes a fault as its last argument, and may be called without one. After
// false it says where reading stopped and why; the record has what was read up to there, and is a
// fresh record behind it, as it is altogether when memory ran out. After true its kind is none, or
// trailing_bits for a parameter set that was read to its end.
//
// A record used before keeps the memory of its arrays; nothing else of it is left.
using h265_fault = h2645_common_fault;
using h265_fault_kind = h2645_common_fault_kind;

}  // namespace kovran

#endif  // KOVRAN_H265_H265_FAULT_H
