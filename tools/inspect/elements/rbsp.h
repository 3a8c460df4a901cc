#ifndef KOVRAN_TOOLS_INSPECT_ELEMENTS_RBSP_H
#define KOVRAN_TOOLS_INSPECT_ELEMENTS_RBSP_H

#include <kovran/h2645_common/h2645_common_bitreader.h>

#include "units/nal_unit.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace kovran::inspect {

// A place in a file, to the bit.
struct bit_place {
    std::uint64_t byte;
    unsigned int bit;  // 0 is the highest one
};

// What a NAL unit carries after its header, without emulation prevention bytes. One object serves
// one unit after the other and keeps its storage.
class rbsp {
public:
    void decode(const nal_unit& unit);

    [[nodiscard]] unsigned char* begin() { return bytes_.data(); }
    [[nodiscard]] unsigned char* end() { return bytes_.data() + bytes_.size(); }
    [[nodiscard]] std::size_t size() const { return bytes_.size(); }
    [[nodiscard]] h2645_common_bitreader reader() const {
        return {bytes_.data(), bytes_.data() + bytes_.size()};
    }

    // Zero bytes at the end, which length-prefixed framing can leave to a unit.
    void strip_trailing_zero_bytes();

    // Where in the stream a bit stands.
    [[nodiscard]] bit_place place_of(std::size_t bit);

private:
    // Of the payload, at a place in it.
    [[nodiscard]] bool is_emulation_prevention(std::size_t place) const;

    std::vector<unsigned char> bytes_;
    const unsigned char* payload_ = nullptr;
    std::size_t payload_size_ = 0;
    std::uint64_t payload_offset_ = 0;

    // The latest byte that was asked for: the next search goes on from there.
    std::size_t found_byte_ = 0;   // in the RBSP
    std::size_t found_place_ = 0;  // in the payload
};

}  // namespace kovran::inspect

#endif  // KOVRAN_TOOLS_INSPECT_ELEMENTS_RBSP_H
