#ifndef KOVRAN_SRC_H265_SEI_PAYLOAD_PARSING_H
#define KOVRAN_SRC_H265_SEI_PAYLOAD_PARSING_H

#include <kovran/h2645_common/h2645_common_bitreader.h>
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_trace.h>

#include "h2645_common/reading.h"
#include "h2645_common/tracing.h"
#include "h265/reading_rules.h"
#include "h265/sei/walk_payload.h"
#include "h265/start_afresh.h"

namespace kovran {

// start_afresh() and payload_syntax(), the description, stand in the record's .syntax.h. What
// start_afresh() leaves has no entries in its arrays, so that a walk may end wherever it fails.
template <class Walker, class Record>
bool walk_payload(Walker& walk, Record& record, const sei_context& context) {
    start_afresh(record);
    return payload_syntax(walk, record, context);
}

// The ways to walk a payload into a record of its own, without the message around it.

template <class Record>
[[nodiscard]] bool trace_payload(Record& record, h2645_common_bitreader& reader, h265_trace* trace,
                                 h265_fault* fault, const sei_context& context = {}) {
    tracing<standard_rules> walk(reader, trace, fault);
    return walk.end(walk_payload(walk, record, context));
}

template <class Record>
[[nodiscard]] bool parse_payload(Record& record, h2645_common_bitreader& reader, h265_fault* fault,
                                 const sei_context& context = {}) {
    if (fault != nullptr) {
        return trace_payload(record, reader, /*trace=*/nullptr, fault, context);
    }
    reading<standard_rules> walk(reader);
    return walk_payload(walk, record, context);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_SEI_PAYLOAD_PARSING_H
