#ifndef KOVRAN_H265_H265_TRACE_H
#define KOVRAN_H265_H265_TRACE_H

#include <kovran/h2645_common/h2645_common_trace.h>

namespace kovran {

using h265_trace = h2645_common_trace;
using h265_traced_element = h2645_common_traced_element;
using h265_traced_structure = h2645_common_traced_structure;

}  // namespace kovran

#endif  // KOVRAN_H265_H265_TRACE_H
