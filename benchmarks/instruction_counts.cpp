// usage: instruction_counts           lists the kernels
//        instruction_counts KERNEL    runs one, within counted() and once before it
// For an instruction counter to watch counted().
#include <cstdio>

#include "counted_kernels.h"
#include "require.h"

// By this name the counter finds what to count.
extern "C" [[gnu::noinline]] bool counted(const kovran::benchmarks::kernel& run) {
    return run();
}

int main(int argc, char** argv) {
    using namespace kovran::benchmarks;
    const kernels all = all_kernels();
    if (argc == 1) {
        for (const auto& [name, run] : all) {
            std::puts(name.c_str());
        }
        return 0;
    }
    const auto chosen = all.find(argv[1]);
    if (chosen == all.end()) {
        return 2;
    }
    require(chosen->second(), chosen->first);
    require(counted(chosen->second), chosen->first);
    return 0;
}
