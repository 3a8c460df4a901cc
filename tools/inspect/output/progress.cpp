#include "output/progress.h"

#include "process/message.h"

#include <fmt/format.h>
#include <unistd.h>

namespace kovran::inspect {
namespace {

constexpr std::uint64_t mebibyte = 1 << 20;
constexpr std::uint64_t large = 64 * mebibyte;
constexpr std::chrono::milliseconds pause{100};

}  // namespace

progress::progress(const input& stream) {
    if (stream.total_size().value_or(0) > large && ::isatty(STDERR_FILENO) == 1) {
        total_size_ = *stream.total_size();
    }
}

progress::~progress() {
    clear();
}

void progress::show(std::uint64_t place) {
    if (total_size_ == 0 || place < next_place_) {
        return;
    }
    next_place_ = place + mebibyte;  // asking for the time at every unit would take longer than it
    const auto now = std::chrono::steady_clock::now();
    if (now < next_time_) {
        return;
    }
    next_time_ = now + pause;
    write_message(
        fmt::format("\r{:3} % of {} MiB", place * 100 / total_size_, total_size_ / mebibyte));
    on_screen_ = true;
}

void progress::clear() {
    if (on_screen_) {
        write_message("\r\x1b[K");
        on_screen_ = false;
    }
}

}  // namespace kovran::inspect
