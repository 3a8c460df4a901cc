#include "sei_messages.h"

#include <cstddef>

#include "annex_b_unit.h"

namespace kovran::test {
namespace {

// Bytes FF and one that is less.
std::string byte_run(std::size_t value) {
    return std::string(value / 0xFF, '\xff') + static_cast<char>(value % 0xFF);
}

}  // namespace

std::string payload_of(bit_writer bits) {
    if (bits.size() % 8 != 0) {
        bits.trailing_bits();
    }
    return {bits.bytes().begin(), bits.bytes().end()};
}

std::string sei_message(unsigned int type, const std::string& payload) {
    return byte_run(type) + byte_run(payload.size()) + payload;
}

std::string sei_unit(const std::string& messages, h265_nal_unit_type type) {
    bit_writer rbsp;
    for (const char byte : messages) {
        rbsp.u<8>(static_cast<unsigned char>(byte));
    }
    return annex_b_unit(type, rbsp.trailing_bits());
}

}  // namespace kovran::test
