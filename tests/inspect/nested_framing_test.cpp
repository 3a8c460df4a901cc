#include "elements/nested_framing.h"

#include <gtest/gtest.h>

namespace kovran::inspect {
namespace {

shown_element byte_of(const char* name, unsigned int value) {
    shown_element byte;
    byte.name.name = name;
    byte.value = value;
    return byte;
}

TEST(NestedFraming, AddsTheBytesOfATypeAndThoseOfASize) {
    nested_framing framing;
    EXPECT_FALSE(framing.add(byte_of("ff_byte", 255)));
    EXPECT_FALSE(framing.add(byte_of("last_payload_type_byte", 5)));
    EXPECT_FALSE(framing.add(byte_of("ff_byte", 255)));
    EXPECT_FALSE(framing.add(byte_of("ff_byte", 255)));
    EXPECT_TRUE(framing.add(byte_of("last_payload_size_byte", 0)));
    EXPECT_EQ(framing.payload_type(), 260U);
    EXPECT_EQ(framing.payload_size(), 510U);
}

// 16,843,009 bytes of 255 are 2 to the power of 32, less 1: one more than is ever told.
TEST(NestedFraming, EndsAtTheGreatestTypeAndSize) {
    nested_framing framing;
    for (const char* const last : {"last_payload_type_byte", "last_payload_size_byte"}) {
        for (unsigned int i = 0; i < 16843009; ++i) {
            EXPECT_FALSE(framing.add(byte_of("ff_byte", 255)));
        }
        static_cast<void>(framing.add(byte_of(last, 254)));
    }
    EXPECT_EQ(framing.payload_type(), 0xFFFFFFFE);
    EXPECT_EQ(framing.payload_size(), 0xFFFFFFFE);
}

}  // namespace
}  // namespace kovran::inspect
