#include "elements/rbsp.h"

#include <kovran/h265/h265_nal_reader.h>

#include "process/bus_error.h"

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
    found_byte_ = 0;
    found_place_ = 0;

    h265_nal_reader reader;
    reader.decode_ptr = unit.bytes + std::min(size, header_size);
    reader.decode_fence = unit.bytes + size;
    bytes_.clear();  // so that the array grows to what is needed and no further
    bytes_.resize(payload_size_);
    bytes_.resize(reader.block_decode(bytes_.data(), bytes_.size()));
    require_mapped_bytes();
}

void rbsp::strip_trailing_zero_bytes() {
    while (!bytes_.empty() && bytes_.back() == 0) {
        bytes_.pop_back();
    }
}

bit_place rbsp::place_of(std::size_t bit) {
    const std::size_t byte = bit / 8;
    if (byte < found_byte_) {
        found_byte_ = 0;
        found_place_ = 0;
    }
    for (; found_byte_ != byte; ++found_byte_) {
        found_place_ += is_emulation_prevention(found_place_ + 1) ? std::size_t{2} : 1;
    }
    return {payload_offset_ + found_place_, static_cast<unsigned int>(bit % 8)};
}

bool rbsp::is_emulation_prevention(std::size_t place) const {
    return place >= 2 && place < payload_size_ && payload_[place - 2] == 0 &&
           payload_[place - 1] == 0 && payload_[place] == 3;
}

}  // namespace kovran::inspect
