#include "elements/rbsp.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "byte_string.h"

namespace kovran::inspect {
namespace {

nal_unit unit_of(std::vector<unsigned char>& bytes, std::uint64_t offset) {
    nal_unit unit;
    unit.readable = true;
    unit.offset = offset;
    unit.size = bytes.size();
    unit.bytes = bytes.data();
    return unit;
}

std::vector<unsigned char> unit_bytes(const char* digits) {
    const std::string text = test::bytes(digits);
    return {text.begin(), text.end()};
}

// Behind the header stand 00 00 03 01, then 02 to 05: byte 2 of the payload is three bytes behind
// its begin, and so on. In any order.
TEST(Rbsp, PlacesItsBitsInTheStream) {
    std::vector<unsigned char> bytes = unit_bytes("4001 00000301 02030405");
    rbsp payload;
    payload.decode(unit_of(bytes, 1000));
    EXPECT_EQ(payload.size(), 7U);
    EXPECT_EQ(payload.place_of(0).byte, 1002U);
    EXPECT_EQ(payload.place_of(8 * 6 + 5).byte, 1009U);
    EXPECT_EQ(payload.place_of(8 * 6 + 5).bit, 5U);
    EXPECT_EQ(payload.place_of(8 * 2).byte, 1005U);
    EXPECT_EQ(payload.place_of(8 * 1 + 7).byte, 1003U);
}

TEST(Rbsp, ForgetsThePlacesOfTheUnitBefore) {
    std::vector<unsigned char> with_emulation = unit_bytes("4001 00000301 02030405");
    std::vector<unsigned char> without = unit_bytes("4201 0102030405060708");
    rbsp payload;
    payload.decode(unit_of(with_emulation, 1000));
    EXPECT_EQ(payload.place_of(8 * 4).byte, 1007U);
    payload.decode(unit_of(without, 2000));
    EXPECT_EQ(payload.place_of(8 * 5).byte, 2007U);
}

}  // namespace
}  // namespace kovran::inspect
