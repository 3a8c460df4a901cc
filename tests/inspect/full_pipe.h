#ifndef KOVRAN_TESTS_INSPECT_FULL_PIPE_H
#define KOVRAN_TESTS_INSPECT_FULL_PIPE_H

#include <array>
#include <cstddef>
#include <string>

namespace kovran::test {

// A pipe that takes nothing more before make_room(): whoever writes into it is held up there.
class full_pipe {
public:
    enum class writing { waits, fails };  // how write() takes it that there is no room

    explicit full_pipe(writing when_full);
    full_pipe(const full_pipe&) = delete;
    full_pipe& operator=(const full_pipe&) = delete;
    ~full_pipe();

    [[nodiscard]] int writing_end() const { return ends_[1]; }
    void make_room();
    // What was written since it was full. To be called after make_room().
    [[nodiscard]] std::string text();

private:
    std::array<int, 2> ends_{-1, -1};
    std::size_t filling_ = 0;
};

}  // namespace kovran::test

#endif  // KOVRAN_TESTS_INSPECT_FULL_PIPE_H
