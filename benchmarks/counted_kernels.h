#ifndef KOVRAN_BENCHMARKS_COUNTED_KERNELS_H
#define KOVRAN_BENCHMARKS_COUNTED_KERNELS_H

#include <functional>
#include <map>
#include <string>

namespace kovran::benchmarks {

// What the benchmarks measure, over inputs that are small and always the same: made here, or taken
// from the samples. A kernel is true where all has gone well.
using kernel = std::function<bool()>;
using kernels = std::map<std::string, kernel>;

// Those that this machine can run.
[[nodiscard]] kernels all_kernels();

}  // namespace kovran::benchmarks

#endif  // KOVRAN_BENCHMARKS_COUNTED_KERNELS_H
