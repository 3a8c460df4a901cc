#ifndef KOVRAN_BENCHMARKS_REQUIRE_H
#define KOVRAN_BENCHMARKS_REQUIRE_H

#include <cstdio>
#include <cstdlib>
#include <string>

namespace kovran::benchmarks {

// Ends the program where a result is not the right one: its time would say nothing.
inline void require(bool right, const std::string& what) {
    if (!right) {
        std::fprintf(stderr, "wrong result: %s\n", what.c_str());
        std::exit(EXIT_FAILURE);
    }
}

}  // namespace kovran::benchmarks

#endif  // KOVRAN_BENCHMARKS_REQUIRE_H
