#ifndef KOVRAN_TOOLS_INSPECT_INPUT_MAPPED_INPUT_H
#define KOVRAN_TOOLS_INSPECT_INPUT_MAPPED_INPUT_H

#include "input/input.h"

#include <cstddef>
#include <cstdint>

namespace kovran::inspect {

// A file in memory, never copied. Only the window is mapped, so that the size of the file matters
// neither to the address space nor to what the program occupies.
class mapped_input final : public input {
public:
    struct sizes {
        std::size_t piece = std::size_t{8} << 20;           // by which the window grows
        std::size_t largest_window = std::size_t{3} << 30;  // a failure beyond
    };

    // False where the file system does not map files, or the program has too few addresses.
    [[nodiscard]] static bool can_map(const file_descriptor& file, std::uint64_t size);

    // A file of `size` bytes; more that are added later are not read.
    mapped_input(file_descriptor file, std::uint64_t size);
    mapped_input(file_descriptor file, std::uint64_t size, sizes limits);
    ~mapped_input() override;

    // These also fail when the file has become shorter or its disk has failed.
    [[nodiscard]] bool read_more() override;
    void drop(std::size_t count) override;
    [[nodiscard]] std::uint64_t skip_hole() override;

private:
    void map(std::uint64_t last);
    void unmap();

    std::uint64_t file_size_;
    sizes limits_;
    unsigned char* mapping_ = nullptr;
    std::size_t mapping_size_ = 0;
};

}  // namespace kovran::inspect

#endif  // KOVRAN_TOOLS_INSPECT_INPUT_MAPPED_INPUT_H
