#include "output/output.h"

#include "process/bus_error.h"
#include "process/failure.h"

#include <algorithm>
#include <utility>

namespace kovran::inspect {
namespace {

constexpr std::size_t buffer_size = std::size_t{1} << 16;

}  // namespace

output::output(file_descriptor file) : file_(std::move(file)), buffer_(buffer_size) {}

output::~output() {
    try {
        flush();
    } catch (const failure&) {
        // There is an earlier one that is being told of.
    }
}

void output::write(const unsigned char* bytes, std::size_t size) {
    require_mapped_bytes();
    if (size > buffer_.size() - used_) {
        flush();
    }
    if (size > buffer_.size()) {
        file_.write_all(bytes, size);
        return;
    }
    std::copy(bytes, bytes + size, buffer_.data() + used_);
    used_ += size;
}

void output::write(std::string_view text) {
    write(reinterpret_cast<const unsigned char*>(text.data()), text.size());
}

void output::flush() {
    // Not to be tried again after a failure.
    const std::size_t size = std::exchange(used_, 0);
    file_.write_all(buffer_.data(), size);
}

void output::finish() {
    flush();
    file_.close();
}

}  // namespace kovran::inspect
