#include <kovran/h265/sei/h265_float_value.h>

#include <cstdint>
#include <optional>

#include <gtest/gtest.h>

namespace kovran {
namespace {

h265_float_value float_value_of(unsigned char exponent_length, unsigned char exponent,
                                unsigned char mantissa_length, std::uint64_t mantissa) {
    h265_float_value value;
    value.exponent_length = exponent_length;
    value.exponent = exponent;
    value.mantissa_length = mantissa_length;
    value.mantissa = mantissa;
    return value;
}

// The principal point of a picture of 1920x1080.
TEST(H265FloatValue, IsAFractionAboveOneTimesAPowerOfTwo) {
    EXPECT_EQ(float_value_of(6, 40, 27, 117440512).value(), 960.0);
    EXPECT_EQ(float_value_of(6, 40, 27, 7340032).value(), 540.0);
}

TEST(H265FloatValue, NeedsNoMantissa) {
    EXPECT_EQ(float_value_of(6, 31, 0, 0).value(), 1.0);
    EXPECT_EQ(float_value_of(6, 1, 0, 0).value(), 0x1p-30);
    EXPECT_EQ(float_value_of(6, 0, 0, 0).value(), 0.0);
}

TEST(H265FloatValue, HasTheMantissaAloneWithExponentZero) {
    EXPECT_EQ(float_value_of(7, 0, 3, 5).value(), 5 * 0x1p-33);
}

TEST(H265FloatValue, IsNegativeWithItsSign) {
    h265_float_value value = float_value_of(7, 32, 2, 1);
    value.sign = true;
    EXPECT_EQ(value.value(), -2.5);
}

TEST(H265FloatValue, IsUnspecifiedWhenTheExponentIsAllOnes) {
    EXPECT_EQ(float_value_of(6, 62, 0, 0).value(), 0x1p31);
    EXPECT_EQ(float_value_of(6, 63, 0, 0).value(), std::nullopt);
    EXPECT_EQ(float_value_of(7, 63, 1, 0).value(), 0x1p32);
    EXPECT_EQ(float_value_of(7, 126, 1, 0).value(), 0x1p95);
    EXPECT_EQ(float_value_of(7, 127, 1, 0).value(), std::nullopt);
}

TEST(H265FloatValue, MayHaveAMantissaOf62Bits) {
    EXPECT_EQ(float_value_of(6, 31, 32, 0x80000000).value(), 1.5);
    EXPECT_EQ(float_value_of(6, 31, 33, 0x80000000).value(), 1.25);
    EXPECT_EQ(float_value_of(6, 31, 62, std::uint64_t{1} << 61).value(), 1.5);
}

TEST(H265FloatValue, IsNotKnownWhenNotInTheStream) {
    EXPECT_EQ(h265_float_value().value(), std::nullopt);
}

}  // namespace
}  // namespace kovran
