#ifndef KOVRAN_H265_H265_FAULT_H
#define KOVRAN_H265_H265_FAULT_H

#include <kovran/h2645_common/h2645_common_fault.h>

namespace kovran {

using h265_fault = h2645_common_fault;
using h265_fault_kind = h2645_common_fault_kind;

}  // namespace kovran

#endif  // KOVRAN_H265_H265_FAULT_H
