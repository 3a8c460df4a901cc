// Parameter sets parsed by their descriptions, in each way that there is, and by parsers written by
// hand.
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
BENCHMARK_TEMPLATE(parameter_set, &parameter_sets::standard_vps)->Name("vps/standard");
BENCHMARK_TEMPLATE(parameter_set, &parameter_sets::traced_vps)->Name("vps/traced");
BENCHMARK_TEMPLATE(parameter_set, &parameter_sets::written_vps)->Name("vps/hand_written");
BENCHMARK_TEMPLATE(parameter_set, &parameter_sets::described_sps)->Name("sps/described");
BENCHMARK_TEMPLATE(parameter_set, &parameter_sets::standard_sps)->Name("sps/standard");
BENCHMARK_TEMPLATE(parameter_set, &parameter_sets::traced_sps)->Name("sps/traced");
BENCHMARK_TEMPLATE(parameter_set, &parameter_sets::written_sps)->Name("sps/hand_written");
BENCHMARK_TEMPLATE(parameter_set, &parameter_sets::described_pps)->Name("pps/described");
BENCHMARK_TEMPLATE(parameter_set, &parameter_sets::standard_pps)->Name("pps/standard");
BENCHMARK_TEMPLATE(parameter_set, &parameter_sets::traced_pps)->Name("pps/traced");
BENCHMARK_TEMPLATE(parameter_set, &parameter_sets::written_pps)->Name("pps/hand_written");

}  // namespace
}  // namespace kovran::benchmarks
