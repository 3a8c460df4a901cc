#ifndef KOVRAN_BENCHMARKS_SCAN_H
#define KOVRAN_BENCHMARKS_SCAN_H

#include <cstddef>
#include <string>
#include <vector>

#include "inputs.h"
#include "require.h"
#include "throughput.h"

namespace kovran::benchmarks {

// What a scan has found; offsets are those of the first header bytes.
struct units_found {
    std::size_t count = 0;
    std::size_t sum_of_offsets = 0;

    void add(std::size_t offset) {
        ++count;
        sum_of_offsets += offset;
    }

    bool operator==(const units_found& other) const {
        return count == other.count && sum_of_offsets == other.sum_of_offsets;
    }
};

struct scan_input {
    std::string name;
    bytes stream;
    units_found units;
    bool whole_units;  // an encoder could have written it
};

// What every contender is measured with; the same bytes for all of them.
std::vector<scan_input>& scan_inputs();

// `scan` takes the bytes to units_found. Some contenders only take streams of whole units.
template <class Scan>
void add_scan_contender(const std::string& contender, bool only_whole_units, Scan scan) {
    for (scan_input& input : scan_inputs()) {
        if (only_whole_units && !input.whole_units) {
            continue;
        }
        const std::string name = "scan/" + input.name + "/" + contender;
        require(scan(input.stream) == input.units, name);
        contend(name, input.stream.size(), [&input, scan] { return scan(input.stream).count; });
    }
}

}  // namespace kovran::benchmarks

#endif  // KOVRAN_BENCHMARKS_SCAN_H
