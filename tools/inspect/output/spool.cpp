#include "output/spool.h"

#include "process/failure.h"

#include <array>
#include <cerrno>

namespace kovran::inspect {
namespace {

constexpr const char* file_name = "temporary file";

}  // namespace

void spool::add(std::string_view text) {
    if (!file_) {
        file_.reset(std::tmpfile());
    }
    if (!file_ || std::fwrite(text.data(), 1, text.size(), file_.get()) != text.size()) {
        throw system_failure(file_name, errno);
    }
}

void spool::write_to(output& lines) {
    if (!file_) {
        return;
    }
    std::rewind(file_.get());
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
