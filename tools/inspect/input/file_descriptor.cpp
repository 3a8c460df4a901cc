#include "input/file_descriptor.h"

#include "process/failure.h"
#include "process/wait_to_retry.h"

#include <cerrno>
#include <utility>

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace kovran::inspect {
namespace {

// Negative, with errno, where it fails.
int open_file(const std::string& path, int flags) {
    constexpr mode_t mode_before_umask = 0666;
    int number = -1;
    do {
        number = ::open(path.c_str(), flags | O_CLOEXEC | O_NOCTTY, mode_before_umask);
    } while (number < 0 && errno == EINTR);
    return number;
}

int checked(int number, const std::string& name) {
    if (number < 0) {
        throw system_failure(name, errno);
    }
    return number;
}

void wait_or_fail(const file_descriptor& file, short events) {
    if (!wait_to_retry(file.number(), events)) {
        throw system_failure(file.name(), errno);
    }
}

}  // namespace

file_descriptor::file_descriptor(int number, std::string name, bool owned)
    : number_(number), name_(std::move(name)), owned_(owned) {}

file_descriptor file_descriptor::standard_input() {
    return {STDIN_FILENO, "standard input", /*owned=*/false};
}

file_descriptor file_descriptor::standard_output() {
    return {STDOUT_FILENO, "standard output", /*owned=*/false};
}

file_descriptor file_descriptor::open_to_read(const std::string& path) {
    return {checked(open_file(path, O_RDONLY), path), path, /*owned=*/true};
}

std::optional<file_descriptor> file_descriptor::open_existing_to_write(const std::string& path) {
    const int number = open_file(path, O_WRONLY);
    if (number < 0 && errno == ENOENT) {
        return std::nullopt;
    }
    return file_descriptor(checked(number, path), path, /*owned=*/true);
}

file_descriptor file_descriptor::create(const std::string& path, const std::string& name) {
    return {checked(open_file(path, O_WRONLY | O_CREAT | O_EXCL), name), name, /*owned=*/true};
}

file_descriptor::file_descriptor(file_descriptor&& other) noexcept
    : number_(other.number_),
      name_(std::move(other.name_)),
      owned_(std::exchange(other.owned_, false)) {}

file_descriptor::~file_descriptor() {
    if (owned_) {
        ::close(number_);
    }
}

struct stat file_descriptor::status() const {
    struct stat status {};
    if (::fstat(number_, &status) != 0) {
        throw system_failure(name_, errno);
    }
    return status;
}

bool file_descriptor::is_terminal() const {
    return ::isatty(number_) == 1;
}

std::size_t file_descriptor::read_some(unsigned char* bytes, std::size_t size) const {
    for (;;) {
        const ssize_t count = ::read(number_, bytes, size);
        if (count >= 0) {
            return static_cast<std::size_t>(count);
        }
        wait_or_fail(*this, POLLIN);
    }
}

void file_descriptor::write_all(const unsigned char* bytes, std::size_t size) const {
    while (size != 0) {
        const ssize_t count = ::write(number_, bytes, size);
        if (count < 0) {
            wait_or_fail(*this, POLLOUT);
            continue;
        }
        bytes += count;
        size -= static_cast<std::size_t>(count);
    }
}

void file_descriptor::truncate() const {
    if (S_ISREG(status().st_mode) && ::ftruncate(number_, 0) != 0) {
        throw system_failure(name_, errno);
    }
}

void file_descriptor::adopt_rights(const struct stat& other) const {
    constexpr mode_t permissions = 0777;
    if (::fchown(number_, other.st_uid, other.st_gid) != 0) {
        // Only the superuser can give files away.
    }
    if (::fchmod(number_, other.st_mode & permissions) != 0) {
        throw system_failure(name_, errno);
    }
}

void file_descriptor::close() {
    if (std::exchange(owned_, false) && ::close(number_) != 0) {
        throw system_failure(name_, errno);
    }
}

bool same_file(const file_descriptor& a, const file_descriptor& b) {
    const struct stat one = a.status();
    const struct stat other = b.status();
    // A terminal or /dev/null may well be both ends.
    const bool holds_bytes = S_ISREG(one.st_mode) || S_ISBLK(one.st_mode);
    return holds_bytes && one.st_dev == other.st_dev && one.st_ino == other.st_ino;
}

}  // namespace kovran::inspect
