#ifndef KOVRAN_FUZZ_CLAIM_H
#define KOVRAN_FUZZ_CLAIM_H

#include <cstdio>
#include <cstdlib>

namespace kovran::fuzz {

// What must hold for every input; stops the target where it does not.
inline void claim(bool holds, const char* what) {
    if (!holds) {
        std::fprintf(stderr, "does not hold: %s\n", what);
        std::abort();
    }
}

}  // namespace kovran::fuzz

#endif  // KOVRAN_FUZZ_CLAIM_H
