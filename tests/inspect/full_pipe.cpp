#include "full_pipe.h"

#include <stdexcept>

#include <fcntl.h>
#include <unistd.h>

namespace kovran::test {

full_pipe::full_pipe(writing when_full) {
    if (::pipe2(ends_.data(), O_CLOEXEC | O_NONBLOCK) != 0) {
        throw std::runtime_error("no pipe");
    }
    for (const std::size_t size : {4096U, 1U}) {
        const std::string piece(size, '-');
        ssize_t count = 0;
        while ((count = ::write(writing_end(), piece.data(), piece.size())) > 0) {
            filling_ += static_cast<std::size_t>(count);
        }
    }
    if (when_full == writing::waits) {
        ::fcntl(writing_end(), F_SETFL, 0);
    }
}

full_pipe::~full_pipe() {
    ::close(ends_[0]);
    ::close(ends_[1]);
}

void full_pipe::make_room() {
    std::string filling(filling_, '\0');
    while (filling_ != 0) {
        const ssize_t count = ::read(ends_[0], filling.data(), filling_);
        if (count <= 0) {
            throw std::runtime_error("a full pipe cannot be read");
        }
        filling_ -= static_cast<std::size_t>(count);
    }
}

std::string full_pipe::text() {
    std::string text;
    std::array<char, 4096> piece{};
    ssize_t count = 0;
    while ((count = ::read(ends_[0], piece.data(), piece.size())) > 0) {
        text.append(piece.data(), static_cast<std::size_t>(count));
    }
    return text;
}

}  // namespace kovran::test
