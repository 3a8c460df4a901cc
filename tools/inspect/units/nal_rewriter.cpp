#include "units/nal_rewriter.h"

#include "units/forbidden_sequence.h"

namespace kovran::inspect {
namespace {

constexpr std::size_t header_size = 2;

void make_room(std::vector<unsigned char>& buffer, std::size_t size) {
    if (buffer.size() < size) {
        buffer.resize(size);
    }
}

}  // namespace

bool nal_rewriter::rewrite(const nal_unit& unit) {
    decode(unit);
    encoded_size_ = encode(unit, to_);
    return encoded_size_ != 0;
}

bool nal_rewriter::loses_zero_byte() const {
    return to_ == nalfmt_annex_b && rbsp_size_ != 0 && encoded_[encoded_size_ - 1] == 0;
}

std::size_t nal_rewriter::length_of(const nal_unit& unit) {
    constexpr std::size_t prefix_size = 4;
    const std::size_t size = encode(unit, nalfmt_length32);
    return size == 0 ? unit.size : size - prefix_size;
}

// block_decode ends a unit at what may not occur in one; going on behind that keeps its bytes.
void nal_rewriter::decode(const nal_unit& unit) {
    make_room(rbsp_, unit.size);
    rbsp_size_ = 0;
    h265_nal_reader reader;
    unsigned char* p = unit.bytes + header_size;
    unsigned char* const last = unit.bytes + unit.size;
    for (;;) {
        reader.decode_ptr = p;
        reader.decode_fence = p + (find_forbidden_sequence(p, last) - p);
        p = reader.decode_fence;
        rbsp_size_ += reader.block_decode(rbsp_.data() + rbsp_size_, rbsp_.size() - rbsp_size_);
        if (p == last) {
            return;
        }
        rbsp_[rbsp_size_++] = *p++;
    }
}

std::size_t nal_rewriter::encode(const nal_unit& unit, h2645_common_nalfmt format) {
    const unsigned int zero_bytes = annex_b_to_itself_ && unit.prefix == 3 ? 0 : 1;
    make_room(encoded_, h265_nal_writer::recommended_output_size(rbsp_size_) + zero_bytes);
    unsigned char* const first = encoded_.data();
    h265_nal_writer writer(first, first, first + encoded_.size(), format);
    return writer.block_encode(rbsp_.data(), rbsp_size_, unit.header, zero_bytes);
}

}  // namespace kovran::inspect
