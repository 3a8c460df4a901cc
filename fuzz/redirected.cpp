#include "redirected.h"

#include "claim.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

namespace kovran::fuzz {

memory_file::memory_file()
    : descriptor_(::memfd_create("memory_file", MFD_CLOEXEC)),
      path_("/proc/self/fd/" + std::to_string(descriptor_)) {
    claim(descriptor_ >= 0, "there can be a file in memory");
}

memory_file::~memory_file() {
    ::close(descriptor_);
}

void memory_file::fill(std::string_view contents) {
    const bool emptied = ::ftruncate(descriptor_, 0) == 0 && ::lseek(descriptor_, 0, SEEK_SET) == 0;
    claim(emptied && ::write(descriptor_, contents.data(), contents.size()) ==
                         static_cast<ssize_t>(contents.size()),
          "a file in memory can be written");
}

std::string memory_file::contents() const {
    std::string contents(static_cast<std::size_t>(::lseek(descriptor_, 0, SEEK_END)), '\0');
    claim(::pread(descriptor_, contents.data(), contents.size(), 0) ==
              static_cast<ssize_t>(contents.size()),
          "a file in memory can be read");
    return contents;
}

redirected::redirected(const memory_file& out)
    : standard_output_(::fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, 3)), standard_error_(stderr) {
    claim(::dup2(out.descriptor(), STDOUT_FILENO) == STDOUT_FILENO,
          "standard output can be redirected");
    stderr = ::open_memstream(&messages_, &messages_size_);
}

redirected::~redirected() {
    std::fclose(stderr);
    stderr = standard_error_;
    std::free(messages_);
    ::dup2(standard_output_, STDOUT_FILENO);
    ::close(standard_output_);
}

std::string redirected::messages() {
    std::fflush(stderr);
    return {messages_, messages_size_};
}

}  // namespace kovran::fuzz
