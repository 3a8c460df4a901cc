#include "input/input.h"

#include "input/mapped_input.h"
#include "input/piped_input.h"
#include "process/failure.h"

#include <cerrno>
#include <utility>

#include <fmt/format.h>
#include <sys/stat.h>

namespace kovran::inspect {

input::input(file_descriptor file, std::optional<std::uint64_t> total_size)
    : file_(std::move(file)), total_size_(total_size) {}

void input::move_window(unsigned char* begin, unsigned char* end, std::uint64_t offset) {
    begin_ = begin;
    end_ = end;
    offset_ = offset;
}

failure input::unit_too_large(std::uint64_t place, std::size_t most) const {
    return failure(fmt::format("{}: at {}: more than {} bytes without the end of a NAL unit",
                               file_.name(), place, most));
}

std::unique_ptr<input> open_input(const std::string& path) {
    if (path == "-") {
        return std::make_unique<piped_input>(file_descriptor::standard_input());
    }
    file_descriptor file = file_descriptor::open_to_read(path);
    const struct stat status = file.status();
    if (S_ISDIR(status.st_mode)) {
        throw system_failure(path, EISDIR);
    }
    // Files that a kernel makes up while they are read say that they are empty.
    if (!S_ISREG(status.st_mode) || status.st_size == 0) {
        return std::make_unique<piped_input>(std::move(file));
    }
    const auto size = static_cast<std::uint64_t>(status.st_size);
    if (mapped_input::can_map(file, size)) {
        return std::make_unique<mapped_input>(std::move(file), size);
    }
    return std::make_unique<piped_input>(std::move(file), size);
}

}  // namespace kovran::inspect
