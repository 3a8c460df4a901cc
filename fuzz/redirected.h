#ifndef KOVRAN_FUZZ_REDIRECTED_H
#define KOVRAN_FUZZ_REDIRECTED_H

#include <cstddef>
#include <cstdio>
#include <string>
#include <string_view>

namespace kovran::fuzz {

// A file that is in memory only.
class memory_file {
public:
    memory_file();
    memory_file(const memory_file&) = delete;
    memory_file& operator=(const memory_file&) = delete;
    ~memory_file();

    [[nodiscard]] int descriptor() const { return descriptor_; }
    // Under which it can be opened.
    [[nodiscard]] const std::string& path() const { return path_; }

    // Writing through the descriptor goes on behind the contents.
    void fill(std::string_view contents);
    [[nodiscard]] std::string contents() const;

private:
    int descriptor_;
    std::string path_;
};

// While it lives, standard output goes into a file, and what is written to `stderr` is kept. The
// descriptor of standard error is left alone, for sanitizers.
class redirected {
public:
    explicit redirected(const memory_file& out);
    redirected(const redirected&) = delete;
    redirected& operator=(const redirected&) = delete;
    ~redirected();

    [[nodiscard]] std::string messages();

private:
    int standard_output_;
    std::FILE* standard_error_;
    char* messages_ = nullptr;
    std::size_t messages_size_ = 0;
};

}  // namespace kovran::fuzz

#endif  // KOVRAN_FUZZ_REDIRECTED_H
