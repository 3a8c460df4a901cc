#include "input/piped_input.h"

#include <algorithm>
#include <utility>

namespace kovran::inspect {

piped_input::piped_input(file_descriptor file, std::optional<std::uint64_t> total_size)
    : piped_input(std::move(file), total_size, sizes{}) {}

piped_input::piped_input(file_descriptor file, std::optional<std::uint64_t> total_size,
                         sizes limits)
    : input(std::move(file), total_size), limits_(limits), buffer_(limits.piece) {
    move_window(buffer_.data(), buffer_.data(), 0);
}

bool piped_input::read_more() {
    if (at_end_) {  // a terminal could be asked again
        return false;
    }
    make_room();
    const auto room = static_cast<std::size_t>(buffer_.data() + buffer_.size() - end());
    const std::size_t count = file().read_some(end(), std::min(room, limits_.piece));
    at_end_ = count == 0;
    move_window(begin(), end() + count, offset());
    return !at_end_;
}

void piped_input::drop(std::size_t count) {
    move_window(begin() + count, end(), offset() + count);
}

void piped_input::make_room() {
    auto before = static_cast<std::size_t>(begin() - buffer_.data());
    const std::size_t held = size();
    if (before + held < buffer_.size()) {
        return;
    }
    if (held >= limits_.largest_window) {
        throw unit_too_large(offset(), limits_.largest_window);
    }
    // Growing once the window fills half of the buffer keeps the bytes from being moved for ever.
    if (held > buffer_.size() / 2) {
        buffer_.resize(std::min(buffer_.size() * 2, limits_.largest_window + limits_.piece));
    }
    const auto window = buffer_.begin() + static_cast<std::ptrdiff_t>(before);
    std::copy(window, window + static_cast<std::ptrdiff_t>(held), buffer_.begin());
    move_window(buffer_.data(), buffer_.data() + held, offset());
}

}  // namespace kovran::inspect
