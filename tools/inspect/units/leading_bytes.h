#ifndef KOVRAN_TOOLS_INSPECT_UNITS_LEADING_BYTES_H
#define KOVRAN_TOOLS_INSPECT_UNITS_LEADING_BYTES_H

#include "input/input.h"
#include "units/nal_unit.h"

#include <cstdint>

namespace kovran::inspect {

// What stands before the first NAL unit of an Annex B stream; it is not kept, as it may be endless.
class leading_bytes {
public:
    // The bytes from the begin of the window to `last`, in which no start code can be used.
    void add(const input& stream, const unsigned char* last);
    void add_zeros(std::uint64_t count);

    [[nodiscard]] std::uint64_t zeros_at_end() const { return zeros_at_end_; }
    // `before_unit`: a unit follows.
    void describe(nal_unit& unit, bool before_unit) const;

private:
    std::uint64_t size_ = 0;
    std::uint64_t zeros_at_begin_ = 0;
    std::uint64_t zeros_at_end_ = 0;
    std::uint64_t passed_over_ = 0;
    std::uint64_t first_passed_over_ = 0;
};

}  // namespace kovran::inspect

#endif  // KOVRAN_TOOLS_INSPECT_UNITS_LEADING_BYTES_H
