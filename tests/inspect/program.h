#ifndef KOVRAN_TESTS_INSPECT_PROGRAM_H
#define KOVRAN_TESTS_INSPECT_PROGRAM_H

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kovran::test {

// What a run of the program left behind.
struct outcome {
    int status = 0;   // the exit status, or 128 and the signal that ended the program
    std::string out;  // standard output
    std::string err;  // standard error
    // Resident, in bytes. The system counts what this process holds when it starts the program as
    // the program's own; where the program needed no more than that, this is 0.
    std::size_t peak_memory = 0;
};

// A run of the program kovran.
class program {
public:
    explicit program(std::vector<std::string> arguments) : arguments_(std::move(arguments)) {}

    // Through a pipe; without one, standard input is empty.
    program& input(std::string_view contents);
    // As the other, written by a function that is false once it has no more.
    program& input(std::function<bool(std::string& piece)> next_piece);
    program& input_from(const std::string& path);
    program& output_to(const std::string& path);
    // Which nobody reads any more.
    program& output_into_closed_pipe();
    program& environment(std::string variable);
    program& address_space(std::size_t bytes);
    // That it may write to a file; the outputs that are caught are files, too.
    program& file_size(std::size_t bytes);
    // With the rights of a file's mode, also for the superuser, who has more.
    program& without_file_privileges();
    program& output_on_terminal();
    program& errors_on_terminal();
    // Instead of what catches standard error; `err` of the outcome is then empty.
    program& errors_into(int descriptor);
    program& without_descriptor(int number);

    [[nodiscard]] outcome run() const;

private:
    [[nodiscard]] int open_output(int captured) const;
    [[noreturn]] void become_program(int in, int out, int err) const;

    std::vector<std::string> arguments_;
    std::vector<std::string> environment_;
    std::function<bool(std::string&)> next_piece_;
    std::string input_path_;
    std::string output_path_;
    std::size_t address_space_ = 0;
    std::size_t file_size_ = 0;
    bool without_file_privileges_ = false;
    bool output_into_closed_pipe_ = false;
    bool output_on_terminal_ = false;
    bool errors_on_terminal_ = false;
    int errors_into_ = -1;
    int closed_ = -1;
};

// kovran with these arguments and nothing else.
[[nodiscard]] outcome run(std::vector<std::string> arguments);

// What a program has written, line by line.
[[nodiscard]] std::vector<std::string> lines_of_text(const std::string& text);

}  // namespace kovran::test

#endif  // KOVRAN_TESTS_INSPECT_PROGRAM_H
