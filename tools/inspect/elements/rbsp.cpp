#include "elements/rbsp.h"

#include <kovran/h265/h265_nal_reader.h>

#include <algorithm>

namespace kovran::inspect {
namespace {

constexpr std::size_t header_size = 2;

}  // namespace

void rbsp::decode(const nal_unit& unit) {
    const auto size = static_cast<std::size_t>(unit.size);
    payload_ = unit.bytes + std::min(size, header_size);
    payload_size_ = size - std::min(size, header_size);
    payload_offset_ = unit.offset + header_size;
    removed_known_ = false;

    h265_nal_reader reader;
    reader.decode_ptr = unit.bytes + std::min(size, header_size);
    reader.decode_fence = unit.bytes + size;
    bytes_.resize(payload_size_);
    bytes_.resize(reader.block_decode(bytes_.data(), bytes_.size()));
}

void rbsp::strip_trailing_zero_bytes() {
    while (!bytes_.empty() && bytes_.back() == 0) {
        bytes_.pop_back();
    }
}

bit_place rbsp::place_of(std::size_t bit) {
    if (!removed_known_) {
        find_emulation_prevention();
    }
    const std::size_t byte = bit / 8;
    const auto removed = std::upper_bound(removed_before_.begin(), removed_before_.end(), byte) -
                         removed_before_.begin();
    return {payload_offset_ + byte + static_cast<std::uint64_t>(removed),
            static_cast<unsigned int>(bit % 8)};
}

void rbsp::find_emulation_prevention() {
    removed_before_.clear();
    removed_known_ = true;
    for (std::size_t i = 0; i + 3 <= payload_size_;) {
        if (payload_[i] == 0 && payload_[i + 1] == 0 && payload_[i + 2] == 3) {
            removed_before_.push_back(i + 2 - removed_before_.size());
            i += 3;
        } else {
            ++i;
        }
    }
}

}  // namespace kovran::inspect
