#ifndef KOVRAN_SRC_H265_PARSING_H
#define KOVRAN_SRC_H265_PARSING_H

#include <kovran/h2645_common/h2645_common_bitreader.h>
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_trace.h>

#include "h2645_common/reading.h"
#include "h2645_common/tracing.h"
#include "h265/noting_rules.h"
#include "h265/reading_rules.h"
#include "h265/start_afresh.h"

namespace kovran {

// The ways to walk a description into a record. `describe(walk)` walks it, into the record that it
// has been made with.

template <class Describe>
[[nodiscard]] bool parse_by_own_rules(h2645_common_bitreader& reader, const Describe& describe) {
    reading<own_rules> walk(reader);
    return describe(walk);
}

template <class Describe>
[[nodiscard]] bool parse_by_own_rules(h2645_common_bitreader& reader, h265_trace& trace,
                                      h265_fault* fault, const Describe& describe) {
    tracing<noting_rules> walk(reader, &trace, fault);
    return walk.end(describe(walk));
}

template <class Describe>
[[nodiscard]] bool walk_by_standard(h2645_common_bitreader& reader, h265_trace* trace,
                                    h265_fault* fault, const Describe& describe) {
    if (trace == nullptr && fault == nullptr) {
        reading<standard_rules> walk(reader);
        return describe(walk);
    }
    tracing<standard_rules> walk(reader, trace, fault);
    return walk.end(describe(walk));
}

// Into a record that starts afresh and keeps the memory of its arrays. A walk that fails has not
// come to all of them: the record then gives up what it had, and is read once more, up to the
// fault.
template <class Record, class Describe>
[[nodiscard]] bool parse_by_standard(Record& record, h2645_common_bitreader& reader,
                                     h265_trace* trace, h265_fault* fault,
                                     const Describe& describe) {
    const h2645_common_bitreader start = reader;
    const bool has_entries = start_afresh(record);
    const bool read = walk_by_standard(reader, trace, fault, describe);
    if (read || !has_entries) {
        return read;
    }
    record = Record{};
    reader = start;
    return walk_by_standard(reader, trace, fault, describe);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_PARSING_H
