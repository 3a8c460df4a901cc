#ifndef KOVRAN_TOOLS_INSPECT_INPUT_PIPED_INPUT_H
#define KOVRAN_TOOLS_INSPECT_INPUT_PIPED_INPUT_H

#include "input/input.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace kovran::inspect {

// What cannot be mapped, read piece by piece into a buffer that holds the window.
class piped_input final : public input {
public:
    struct sizes {
        std::size_t piece = std::size_t{1} << 20;           // that the buffer begins with
        std::size_t largest_window = std::size_t{1} << 30;  // a failure beyond
    };

    explicit piped_input(file_descriptor file,
                         std::optional<std::uint64_t> total_size = std::nullopt);
    piped_input(file_descriptor file, std::optional<std::uint64_t> total_size, sizes limits);

    [[nodiscard]] bool read_more() override;
    void drop(std::size_t count) override;

private:
    void make_room();

    sizes limits_;
    std::vector<unsigned char> buffer_;
    bool at_end_ = false;
};

}  // namespace kovran::inspect

#endif  // KOVRAN_TOOLS_INSPECT_INPUT_PIPED_INPUT_H
