#include "output/spool.h"

#include "process/failure.h"

#include <array>
#include <cerrno>
#include <cstddef>

namespace kovran::inspect {
namespace {

constexpr const char* file_name = "temporary file";
constexpr std::size_t most_in_memory = std::size_t{1} << 16;

}  // namespace

void spool::add(std::string_view text) {
    latest_ += text;
    if (latest_.size() > most_in_memory) {
        write_latest();
    }
}

void spool::write_latest() {
    if (!file_) {
        file_.reset(std::tmpfile());
    }
    if (!file_ || std::fwrite(latest_.data(), 1, latest_.size(), file_.get()) != latest_.size()) {
        throw system_failure(file_name, errno);
    }
    latest_.clear();
}

void spool::write_to(output& lines) {
    if (!file_) {
        lines.write(latest_);
        return;
    }
    write_latest();
    if (std::fflush(file_.get()) != 0 || std::fseek(file_.get(), 0, SEEK_SET) != 0) {
        throw system_failure(file_name, errno);
    }
    std::array<char, 65536> part{};
    std::size_t size = 0;
    while ((size = std::fread(part.data(), 1, part.size(), file_.get())) != 0) {
        lines.write({part.data(), size});
    }
    if (std::ferror(file_.get()) != 0) {
        throw system_failure(file_name, errno);
    }
}

}  // namespace kovran::inspect
