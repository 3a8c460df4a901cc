#ifndef KOVRAN_BENCHMARKS_REWRITE_H
#define KOVRAN_BENCHMARKS_REWRITE_H

#include <string>
#include <vector>

#include "inputs.h"

namespace kovran::benchmarks {

struct rewrite_input {
    std::string name;
    bytes stream;
};

std::vector<rewrite_input>& rewrite_inputs();

// The units of a stream with all that is between them made the same: four-byte start codes.
[[nodiscard]] bytes normalised(bytes stream);

}  // namespace kovran::benchmarks

#endif  // KOVRAN_BENCHMARKS_REWRITE_H
