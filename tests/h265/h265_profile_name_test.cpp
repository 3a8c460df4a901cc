#include <kovran/h265/h265_profile_name.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

namespace kovran {
namespace {

using layer = h265_profile_tier_level::layer_t;

// Flags as the tables of Annex A have them, a digit each: 14, 12, 10 and 8 bits; 4:2:2, 4:2:0 and
// monochrome; intra, one picture and lower bit rate.
layer layer_of(unsigned char profile_idc, const std::string& flags) {
    layer general;
    general.profile_idc = profile_idc;
    const auto flag = [&flags](std::size_t place) { return flags.at(place) == '1'; };
    general.max_14bit_constraint_flag = flag(0);
    general.max_12bit_constraint_flag = flag(1);
    general.max_10bit_constraint_flag = flag(2);
    general.max_8bit_constraint_flag = flag(3);
    general.max_422chroma_constraint_flag = flag(5);
    general.max_420chroma_constraint_flag = flag(6);
    general.max_monochrome_constraint_flag = flag(7);
    general.intra_constraint_flag = flag(9);
    general.one_picture_only_constraint_flag = flag(10);
    general.lower_bit_rate_constraint_flag = flag(11);
    return general;
}

constexpr const char* no_flags = "0000 000 000";

layer compatible_with(const std::vector<std::size_t>& profiles, unsigned char profile_idc = 0) {
    layer general = layer_of(profile_idc, no_flags);
    general.profile_compatibility_flag.resize(32);
    for (const std::size_t profile : profiles) {
        general.profile_compatibility_flag[profile] = true;
    }
    return general;
}

std::string name_of(unsigned char profile_idc, const std::string& flags) {
    return h265_profile_name(layer_of(profile_idc, flags));
}

TEST(H265ProfileName, IsThatOfTheTables) {
    struct row {
        unsigned char profile_idc;
        const char* flags;
        const char* name;
    };
    const std::vector<row> rows = {
        {4, "0111 111 001", "Monochrome"},
        {4, "0110 111 001", "Monochrome 10"},
        {4, "0100 111 001", "Monochrome 12"},
        {4, "0000 111 001", "Monochrome 16"},
        {4, "0100 110 001", "Main 12"},
        {4, "0110 100 001", "Main 4:2:2 10"},
        {4, "0100 100 001", "Main 4:2:2 12"},
        {4, "0111 000 001", "Main 4:4:4"},
        {4, "0110 000 001", "Main 4:4:4 10"},
        {4, "0100 000 001", "Main 4:4:4 12"},
        {4, "0111 110 100", "Main Intra"},
        {4, "0110 110 100", "Main 10 Intra"},
        {4, "0100 110 100", "Main 12 Intra"},
        {4, "0110 100 100", "Main 4:2:2 10 Intra"},
        {4, "0100 100 100", "Main 4:2:2 12 Intra"},
        {4, "0111 000 100", "Main 4:4:4 Intra"},
        {4, "0110 000 100", "Main 4:4:4 10 Intra"},
        {4, "0100 000 100", "Main 4:4:4 12 Intra"},
        {4, "0000 000 100", "Main 4:4:4 16 Intra"},
        {4, "0111 000 110", "Main 4:4:4 Still Picture"},
        {4, "0000 000 110", "Main 4:4:4 16 Still Picture"},
        {5, "1111 000 001", "High Throughput 4:4:4"},
        {5, "1110 000 001", "High Throughput 4:4:4 10"},
        {5, "1000 000 001", "High Throughput 4:4:4 14"},
        {5, "0000 000 100", "High Throughput 4:4:4 16 Intra"},
        {9, "1111 110 001", "Screen-Extended Main"},
        {9, "1110 110 001", "Screen-Extended Main 10"},
        {9, "1111 000 001", "Screen-Extended Main 4:4:4"},
        {9, "1110 000 001", "Screen-Extended Main 4:4:4 10"},
        {11, "1111 000 001", "Screen-Extended High Throughput 4:4:4"},
        {11, "1110 000 001", "Screen-Extended High Throughput 4:4:4 10"},
        {11, "1000 000 001", "Screen-Extended High Throughput 4:4:4 14"},
        {7, "0111 110 001", "Scalable Main"},
        {7, "0110 110 001", "Scalable Main 10"},
        {10, "1111 111 001", "Scalable Monochrome"},
        {10, "1100 111 001", "Scalable Monochrome 12"},
        {10, "0000 111 001", "Scalable Monochrome 16"},
        {10, "1111 000 001", "Scalable Main 4:4:4"},
    };
    for (const row& each : rows) {
        EXPECT_EQ(name_of(each.profile_idc, each.flags), each.name);
    }
}

TEST(H265ProfileName, IsThatOfTheNumberWhereThatTellsAll) {
    EXPECT_EQ(name_of(1, no_flags), "Main");
    EXPECT_EQ(name_of(2, no_flags), "Main 10");
    EXPECT_EQ(name_of(2, "0000 000 010"), "Main 10 Still Picture");
    EXPECT_EQ(name_of(3, no_flags), "Main Still Picture");
    EXPECT_EQ(name_of(6, no_flags), "Multiview Main");
    EXPECT_EQ(name_of(6, "0111 110 001"), "Multiview Main");
    EXPECT_EQ(name_of(8, "0111 110 001"), "3D Main");
    EXPECT_EQ(name_of(12, no_flags), "Multiview Extended");
    EXPECT_EQ(name_of(13, no_flags), "Multiview Extended 10");
}

TEST(H265ProfileName, DoesNotDependOnTheLowerBitRate) {
    EXPECT_EQ(name_of(4, "0111 000 111"), "Main 4:4:4 Still Picture");
    EXPECT_EQ(name_of(4, "0100 000 101"), "Main 4:4:4 12 Intra");
    EXPECT_EQ(name_of(5, "0000 000 101"), "High Throughput 4:4:4 16 Intra");
}

TEST(H265ProfileName, IsTheLeastCapableThatAllowsWhatTheFlagsAllow) {
    EXPECT_EQ(name_of(4, "0111 100 001"), "Main 4:2:2 10");  // 4:2:2, 8 bit
    EXPECT_EQ(name_of(4, "0111 110 001"), "Main 12");        // 4:2:0, 8 bit
    EXPECT_EQ(name_of(4, "0111 111 101"), "Monochrome");     // an intra one
    EXPECT_EQ(name_of(4, "0111 110 110"), "Main Intra");     // a still picture
    EXPECT_EQ(name_of(4, "0110 000 110"), "Main 4:4:4 10 Intra");
    EXPECT_EQ(name_of(4, "0000 100 100"), "Main 4:4:4 16 Intra");
    EXPECT_EQ(name_of(5, "1100 000 001"), "High Throughput 4:4:4 14");  // 12 bit
    EXPECT_EQ(name_of(9, "1111 100 001"), "Screen-Extended Main 4:4:4");
}

TEST(H265ProfileName, IsEmptyWhereNoProfileAllowsThat) {
    EXPECT_EQ(name_of(4, "0000 000 001"), "");  // 16 bit, not intra
    EXPECT_EQ(name_of(0, no_flags), "");
    for (unsigned char profile = 14; profile < 32; ++profile) {
        EXPECT_EQ(name_of(profile, no_flags), "");
    }
}

TEST(H265ProfileName, IsThatOfTheLowestCompatibilityFlagWithoutANumber) {
    EXPECT_STREQ(h265_profile_name(compatible_with({1, 2})), "Main");
    EXPECT_STREQ(h265_profile_name(compatible_with({2})), "Main 10");
    EXPECT_STREQ(h265_profile_name(compatible_with({20, 31})), "");
    EXPECT_STREQ(h265_profile_name(compatible_with({2}, 20)), "Main 10");
    EXPECT_STREQ(h265_profile_name(compatible_with({4, 6})), "Multiview Main");
    EXPECT_STREQ(h265_profile_name(compatible_with({1, 2}, 2)), "Main 10");
}

TEST(H265ProfileName, AStillPictureIsOneWhateverElseItIsCompatibleWith) {
    EXPECT_STREQ(h265_profile_name(compatible_with({1, 2, 3})), "Main Still Picture");
}

TEST(H265ProfileName, OtherProfileSpacesHaveNoNames) {
    layer general = layer_of(1, no_flags);
    for (unsigned char space = 1; space < 4; ++space) {
        general.profile_space = space;
        EXPECT_STREQ(h265_profile_name(general), "");
    }
}

}  // namespace
}  // namespace kovran
