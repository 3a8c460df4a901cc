// Parameter sets parsed by their descriptions, and by parsers written by hand.
#include "parameter_sets.h"

#include <benchmark/benchmark.h>

namespace kovran::benchmarks {
namespace {

template <bool (parameter_sets::*parse)()>
void parameter_set(benchmark::State& state) {
    parameter_sets sets;
    for (auto _ : state) {
        if (!(sets.*parse)()) {
            state.SkipWithError("not parsed");
            break;
        }
    }
}
BENCHMARK_TEMPLATE(parameter_set, &parameter_sets::described_vps)->Name("vps/described");
BENCHMARK_TEMPLATE(parameter_set, &parameter_sets::written_vps)->Name("vps/hand_written");
BENCHMARK_TEMPLATE(parameter_set, &parameter_sets::described_sps)->Name("sps/described");
BENCHMARK_TEMPLATE(parameter_set, &parameter_sets::written_sps)->Name("sps/hand_written");
BENCHMARK_TEMPLATE(parameter_set, &parameter_sets::described_pps)->Name("pps/described");
BENCHMARK_TEMPLATE(parameter_set, &parameter_sets::written_pps)->Name("pps/hand_written");

}  // namespace
}  // namespace kovran::benchmarks
