#ifndef KOVRAN_TOOLS_INSPECT_OUTPUT_PROGRESS_H
#define KOVRAN_TOOLS_INSPECT_OUTPUT_PROGRESS_H

#include "input/input.h"

#include <chrono>
#include <cstdint>

namespace kovran::inspect {

// How far a large file has been read, on standard error where that is a terminal.
class progress {
public:
    explicit progress(const input& stream);
    progress(const progress&) = delete;
    progress& operator=(const progress&) = delete;
    ~progress();

    void show(std::uint64_t place);
    // To be called before anything else is written to a terminal.
    void clear();

private:
    std::uint64_t total_size_ = 0;  // 0: too small to be shown
    std::uint64_t next_place_ = 0;
    std::chrono::steady_clock::time_point next_time_;
    bool on_screen_ = false;
};

}  // namespace kovran::inspect

#endif  // KOVRAN_TOOLS_INSPECT_OUTPUT_PROGRESS_H
