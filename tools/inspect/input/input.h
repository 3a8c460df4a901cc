#ifndef KOVRAN_TOOLS_INSPECT_INPUT_INPUT_H
#define KOVRAN_TOOLS_INSPECT_INPUT_INPUT_H

#include "input/file_descriptor.h"
#include "process/failure.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace kovran::inspect {

// A stream of bytes, seen through a window that the user moves over it: read_more() takes more
// bytes in at its end, drop() gives up those at its begin.
class input {
public:
    input(const input&) = delete;
    input& operator=(const input&) = delete;
    virtual ~input() = default;

    [[nodiscard]] const file_descriptor& file() const { return file_; }
    // Of the whole stream, where it is known beforehand.
    [[nodiscard]] std::optional<std::uint64_t> total_size() const { return total_size_; }

    // The window. Only for reading, although the reader of NAL units takes such pointers.
    [[nodiscard]] unsigned char* begin() const { return begin_; }
    [[nodiscard]] unsigned char* end() const { return end_; }
    [[nodiscard]] std::size_t size() const { return static_cast<std::size_t>(end_ - begin_); }
    // Where in the stream the window begins.
    [[nodiscard]] std::uint64_t offset() const { return offset_; }
    // The byte of the window that stands at this place of the stream.
    [[nodiscard]] unsigned char* at(std::uint64_t place) const {
        return begin_ + static_cast<std::size_t>(place - offset_);
    }
    [[nodiscard]] std::uint64_t place_of(const unsigned char* byte) const {
        return offset_ + static_cast<std::uint64_t>(byte - begin_);
    }

    // Of what begins at this place: more than `most` bytes, and no end.
    [[nodiscard]] failure unit_too_large(std::uint64_t place, std::size_t most) const;

    // False at the end of the stream. Moves the window's bytes in memory.
    [[nodiscard]] virtual bool read_more() = 0;
    // Of size() bytes at most.
    virtual void drop(std::size_t count) = 0;
    // When the window holds only zero bytes and more of them follow that need not be read, gives
    // them up and says how many they were. A start code may begin with those that stay.
    [[nodiscard]] virtual std::uint64_t skip_hole() { return 0; }

protected:
    input(file_descriptor file, std::optional<std::uint64_t> total_size);

    void move_window(unsigned char* begin, unsigned char* end, std::uint64_t offset);

private:
    file_descriptor file_;
    std::optional<std::uint64_t> total_size_;
    unsigned char* begin_ = nullptr;
    unsigned char* end_ = nullptr;
    std::uint64_t offset_ = 0;
};

// A file, mapped where that is possible, or standard input when the path is "-".
[[nodiscard]] std::unique_ptr<input> open_input(const std::string& path);

}  // namespace kovran::inspect

#endif  // KOVRAN_TOOLS_INSPECT_INPUT_INPUT_H
