#include "program.h"

#include <array>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <thread>

#include <fcntl.h>
#include <linux/capability.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace kovran::test {
namespace {

int checked(int result) {
    if (result < 0) {
        throw std::runtime_error("a system call of the test failed");
    }
    return result;
}

void feed(int pipe_end, const std::function<bool(std::string&)>& next_piece) {
    std::string piece;
    bool open = true;
    while (open && next_piece(piece)) {
        std::string_view rest = piece;
        while (open && !rest.empty()) {
            const ssize_t count = ::write(pipe_end, rest.data(), rest.size());
            open = count > 0;
            rest.remove_prefix(open ? static_cast<std::size_t>(count) : rest.size());
        }
    }
    ::close(pipe_end);
}

// Of this process, in bytes.
std::size_t resident_memory() {
    std::size_t pages = 0;
    std::size_t resident_pages = 0;
    std::ifstream("/proc/self/statm") >> pages >> resident_pages;
    return resident_pages * static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
}

// Where the program writes to: a file in memory or a terminal.
class capture {
public:
    explicit capture(bool terminal) : terminal_(terminal) {
        if (!terminal_) {
            reading_end_ = checked(::memfd_create("captured", MFD_CLOEXEC));
            writing_end_ = checked(::fcntl(reading_end_, F_DUPFD_CLOEXEC, 0));
            return;
        }
        reading_end_ = checked(::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC));
        checked(::grantpt(reading_end_));
        checked(::unlockpt(reading_end_));
        std::array<char, 64> name{};
        checked(-::ptsname_r(reading_end_, name.data(), name.size()));
        writing_end_ = checked(::open(name.data(), O_WRONLY | O_NOCTTY | O_CLOEXEC));
        reader_ = std::thread([this] { read_all(); });
    }
    capture(const capture&) = delete;
    capture& operator=(const capture&) = delete;
    ~capture() {
        close_writing_end();
        if (reader_.joinable()) {
            reader_.join();
        }
        ::close(reading_end_);
    }

    [[nodiscard]] int writing_end() const { return writing_end_; }

    // Once the program has ended.
    [[nodiscard]] std::string text() {
        close_writing_end();
        if (terminal_) {
            reader_.join();
        } else {
            ::lseek(reading_end_, 0, SEEK_SET);
            read_all();
        }
        return text_;
    }

private:
    void close_writing_end() {
        if (writing_end_ >= 0) {
            ::close(std::exchange(writing_end_, -1));
        }
    }

    void read_all() {
        std::array<char, 65536> piece{};
        ssize_t count = 0;
        while ((count = ::read(reading_end_, piece.data(), piece.size())) > 0) {
            text_.append(piece.data(), static_cast<std::size_t>(count));
        }
    }

    bool terminal_;
    int reading_end_ = -1;
    int writing_end_ = -1;
    std::string text_;
    std::thread reader_;
};

}  // namespace

program& program::input(std::string_view contents) {
    next_piece_ = [rest = std::string(contents)](std::string& piece) mutable {
        piece = std::exchange(rest, {});
        return !piece.empty();
    };
    return *this;
}

program& program::input(std::function<bool(std::string&)> next_piece) {
    next_piece_ = std::move(next_piece);
    return *this;
}

program& program::input_from(const std::string& path) {
    input_path_ = path;
    return *this;
}

program& program::output_to(const std::string& path) {
    output_path_ = path;
    return *this;
}

program& program::output_into_closed_pipe() {
    output_into_closed_pipe_ = true;
    return *this;
}

program& program::environment(std::string variable) {
    environment_.push_back(std::move(variable));
    return *this;
}

program& program::file_size(std::size_t bytes) {
    file_size_ = bytes;
    return *this;
}

program& program::address_space(std::size_t bytes) {
    address_space_ = bytes;
    return *this;
}

program& program::without_file_privileges() {
    without_file_privileges_ = true;
    return *this;
}

program& program::output_on_terminal() {
    output_on_terminal_ = true;
    return *this;
}

program& program::errors_on_terminal() {
    errors_on_terminal_ = true;
    return *this;
}

program& program::errors_into(int descriptor) {
    errors_into_ = descriptor;
    return *this;
}

program& program::without_descriptor(int number) {
    closed_ = number;
    return *this;
}

outcome program::run() const {
    // The feeding thread is told by write() that the program reads no more.
    ::signal(SIGPIPE, SIG_IGN);

    capture out(output_on_terminal_);
    capture err(errors_on_terminal_);
    std::array<int, 2> pipe_ends{-1, -1};
    int in = -1;
    if (next_piece_) {
        checked(::pipe2(pipe_ends.data(), O_CLOEXEC));
        in = pipe_ends[0];
    } else {
        const std::string path = input_path_.empty() ? "/dev/null" : input_path_;
        in = checked(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    }
    const int out_end = checked(open_output(out.writing_end()));
    checked(::fcntl(out_end, F_SETFD, FD_CLOEXEC));

    const std::size_t memory_before = resident_memory();
    const pid_t child = checked(::fork());
    if (child == 0) {
        become_program(in, out_end, errors_into_ >= 0 ? errors_into_ : err.writing_end());
    }
    ::close(in);
    ::close(out_end);
    std::thread feeder;
    if (next_piece_) {
        feeder = std::thread(feed, pipe_ends[1], next_piece_);
    }
    int status = 0;
    rusage usage{};
    const pid_t ended = ::wait4(child, &status, 0, &usage);
    if (feeder.joinable()) {
        feeder.join();
    }
    checked(ended);

    outcome result;
    result.status = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    result.out = out.text();
    result.err = err.text();
    constexpr std::size_t to_become_program = 1048576;
    const auto peak = static_cast<std::size_t>(usage.ru_maxrss) * 1024;
    result.peak_memory = peak > memory_before + to_become_program ? peak : 0;
    return result;
}

int program::open_output(int captured) const {
    if (output_into_closed_pipe_) {
        std::array<int, 2> ends{-1, -1};
        checked(::pipe(ends.data()));
        ::close(ends[0]);
        return ends[1];
    }
    return output_path_.empty() ? ::dup(captured)
                                : ::open(output_path_.c_str(), O_WRONLY | O_CREAT | O_APPEND, 0666);
}

void program::become_program(int in, int out, int err) const {
    ::signal(SIGPIPE, SIG_DFL);
    ::dup2(in, STDIN_FILENO);
    ::dup2(out, STDOUT_FILENO);
    ::dup2(err, STDERR_FILENO);
    if (closed_ >= 0) {
        ::close(closed_);
    }
    if (address_space_ != 0) {
        const rlimit limit{address_space_, address_space_};
        ::setrlimit(RLIMIT_AS, &limit);
    }
    if (file_size_ != 0) {
        const rlimit limit{file_size_, file_size_};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    if (without_file_privileges_) {
        ::prctl(PR_CAPBSET_DROP, CAP_DAC_OVERRIDE);
        ::prctl(PR_CAPBSET_DROP, CAP_DAC_READ_SEARCH);
    }
    for (const std::string& variable : environment_) {
        ::putenv(const_cast<char*>(variable.c_str()));
    }
    std::vector<char*> argv{const_cast<char*>("kovran")};
    for (const std::string& argument : arguments_) {
        argv.push_back(const_cast<char*>(argument.c_str()));
    }
    argv.push_back(nullptr);
    ::execv(KOVRAN_PROGRAM, argv.data());
    ::_exit(127);
}

outcome run(std::vector<std::string> arguments) {
    return program(std::move(arguments)).run();
}

std::vector<std::string> lines_of_text(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(line);
    }
    return lines;
}

}  // namespace kovran::test
