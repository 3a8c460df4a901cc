#ifndef KOVRAN_TOOLS_INSPECT_INPUT_MAPPED_INPUT_H
#define KOVRAN_TOOLS_INSPECT_INPUT_MAPPED_INPUT_H

#include "input/input.h"

#include <cstddef>

namespace kovran::inspect {

// The file for reading, or null when it cannot be mapped: its file system does not do that, or the
// address space of the program is limited to less.
[[nodiscard]] void* map_file(const file_descriptor& file, std::size_t size);

// A file in memory, never copied. Pages that the window has left are given back, so that what the
// program occupies does not grow with the file.
class mapped_input final : public input {
public:
    // Takes over a mapping of `size` bytes.
    mapped_input(file_descriptor file, void* mapping, std::size_t size);
    ~mapped_input() override;

    [[nodiscard]] bool read_more() override;
    void drop(std::size_t count) override;

private:
    unsigned char* mapping_;
    std::size_t size_;
    std::size_t given_back_ = 0;
};

}  // namespace kovran::inspect

#endif  // KOVRAN_TOOLS_INSPECT_INPUT_MAPPED_INPUT_H
