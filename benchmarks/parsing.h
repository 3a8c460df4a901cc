#ifndef KOVRAN_BENCHMARKS_PARSING_H
#define KOVRAN_BENCHMARKS_PARSING_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "support/allocation_failure.h"
#include "throughput.h"

namespace kovran::benchmarks {

// What was read of syntax elements that all contenders have, for comparison.
using values = std::vector<std::int64_t>;

// Of fields of any types.
template <class... Fields>
[[nodiscard]] values values_in(Fields... fields) {
    return {static_cast<std::int64_t>(fields)...};
}

// A contender whose memory is counted as well: "allocations" in the results are those of doing the
// job once more.
template <class Run>
void contend_with_allocations(const std::string& name, std::size_t size, Run run) {
    run();
    const test::allocation_count count;
    run();
    const auto allocations = static_cast<double>(count.allocations());
    contend(name, size, std::move(run), {{"allocations", allocations}});
}

}  // namespace kovran::benchmarks

#endif  // KOVRAN_BENCHMARKS_PARSING_H
