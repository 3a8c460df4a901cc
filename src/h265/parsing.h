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

template <class Record, class Walk, class Describe>
[[nodiscard, gnu::noinline, gnu::cold]] bool walk_once_more(Record& record, Walk& walk,
                                                            const Describe& describe) {
    record = Record{};
    if (walk.ran_out_of_memory()) {
        return false;
    }
    walk.go_back();
    return describe(walk);
}

// Into a record that starts afresh and keeps the memory of its arrays. A walk that fails has not
// come to all of them: the record then gives up what it had, and is read once more, up to the
// fault; where memory has run out, it stays empty.
template <class Record, class Walk, class Describe>
[[nodiscard, gnu::always_inline]] inline bool walk_afresh(Record& record, Walk& walk,
                                                          const Describe& describe) {
    start_afresh(record);
    try {
        if (describe(walk)) {
            return true;
        }
    } catch (...) {
        record = Record{};
        throw;
    }
    return walk_once_more(record, walk, describe);
}

template <class Record, class Describe>
[[nodiscard, gnu::noinline]] bool trace_by_standard(Record& record, h2645_common_bitreader& reader,
                                                    h265_trace* trace, h265_fault* fault,
                                                    const Describe& describe) {
    tracing<standard_rules> walk(reader, trace, fault);
    return walk.end(walk_afresh(record, walk, describe));
}

template <class Record, class Describe>
[[nodiscard, gnu::always_inline]] inline bool parse_by_standard(Record& record,
                                                                h2645_common_bitreader& reader,
                                                                h265_fault* fault,
                                                                const Describe& describe) {
    if (fault != nullptr) {
        return trace_by_standard(record, reader, /*trace=*/nullptr, fault, describe);
    }
    reading<standard_rules> walk(reader);
    return walk_afresh(record, walk, describe);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_PARSING_H
