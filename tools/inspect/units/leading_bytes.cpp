#include "units/leading_bytes.h"

#include "units/unit_faults.h"
#include "units/zero_bytes.h"

#include <algorithm>
#include <cstddef>
#include <cstring>

#include <fmt/format.h>

namespace kovran::inspect {
namespace {

constexpr std::ptrdiff_t start_code_and_header_byte = 4;

// The first of [first, last) that looks so; a start code before `last` may end behind it, up to
// `fence`. `last` where there is none.
const unsigned char* find_start_code(const unsigned char* first, const unsigned char* last,
                                     const unsigned char* fence) {
    while (first != last && fence - first >= start_code_and_header_byte) {
        const auto last_byte_of_code = std::min(last - first, fence - first - 3);
        const void* const one =
            std::memchr(first + 2, 1, static_cast<std::size_t>(last_byte_of_code));
        if (one == nullptr) {
            return last;
        }
        const auto* const code = static_cast<const unsigned char*>(one) - 2;
        if (code[0] == 0 && code[1] == 0) {
            return code;
        }
        first = code + 1;
    }
    return last;
}

}  // namespace

void leading_bytes::add(const input& stream, const unsigned char* last) {
    const unsigned char* const first = stream.begin();
    const auto size = static_cast<std::size_t>(last - first);
    const std::size_t zeros = trailing_zeros(first, last);
    if (zeros == size) {
        add_zeros(size);
    } else {
        zeros_at_begin_ += zeros_at_begin_ == size_ ? leading_zeros(first, last) : 0;
        zeros_at_end_ = zeros;
        size_ += size;
    }

    const unsigned char* code = find_start_code(first, last, stream.end());
    for (; code != last; code = find_start_code(code + 1, last, stream.end())) {
        if (passed_over_++ == 0) {
            first_passed_over_ = stream.place_of(code);
        }
    }
}

void leading_bytes::add_zeros(std::uint64_t count) {
    zeros_at_begin_ += zeros_at_begin_ == size_ ? count : 0;
    zeros_at_end_ += count;
    size_ += count;
}

void leading_bytes::describe(nal_unit& unit, bool before_unit) const {
    unit.offset = zeros_at_begin_;
    unit.size = size_ - zeros_at_begin_ - zeros_at_end_;
    if (before_unit && zeros_at_begin_ != size_) {
        unit.faults.push_back(fmt::format("skipped {} {} before the first start code", unit.size,
                                          unit.size == 1 ? "byte" : "bytes"));
    }
    if (passed_over_ != 0) {
        unit.faults.push_back(passed_over_fault(first_passed_over_, passed_over_));
    }
}

}  // namespace kovran::inspect
