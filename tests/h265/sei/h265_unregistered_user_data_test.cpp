#include <kovran/h265/sei/h265_unregistered_user_data.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>
#include <vector>

namespace kovran {
namespace {

using uuid = std::array<unsigned char, 16>;

constexpr uuid of_x265 = {0x2c, 0xa2, 0xde, 0x09, 0xb5, 0x17, 0x47, 0xdb,
                          0xbb, 0x55, 0xa4, 0xfe, 0x7f, 0xc2, 0xfc, 0x4e};
constexpr uuid of_kvazaar = {0x32, 0xfe, 0x46, 0x6c, 0x98, 0x41, 0x42, 0x69,
                             0xae, 0x35, 0x6a, 0x91, 0x54, 0x9e, 0xf3, 0xf1};
constexpr uuid of_nanoseconds = {0xcf, 0x84, 0x82, 0x78, 0xee, 0x23, 0x30, 0x6c,
                                 0x92, 0x65, 0xe8, 0xfe, 0xf2, 0x2f, 0xb8, 0xb8};

constexpr uuid of_microseconds = {0xa8, 0x68, 0x7d, 0xd4, 0xd7, 0x59, 0x37, 0x58,
                                  0xa5, 0xce, 0xf0, 0x33, 0x8b, 0x65, 0x45, 0xf1};

uuid of_microseconds_in_avc() {
    const std::string letters = "MISPmicrosectime";
    uuid identifier{};
    std::copy(letters.begin(), letters.end(), identifier.begin());
    return identifier;
}

h265_nal_sei_user_data_unregistered unregistered(const uuid& identifier,
                                                 const std::vector<unsigned char>& bytes) {
    h265_nal_sei_user_data_unregistered user_data;
    user_data.uuid_iso_iec_11578 = identifier;
    user_data.user_data_payload_byte = bytes;
    return user_data;
}

h265_nal_sei_user_data_unregistered with_text(const std::string& text) {
    return unregistered({}, {text.begin(), text.end()});
}

TEST(H265UnregisteredUserData, IsNamedByItsUuid) {
    EXPECT_STREQ(h265_user_data_name(unregistered(of_x265, {})), "x265");
    EXPECT_STREQ(h265_user_data_name(unregistered(of_kvazaar, {})), "Kvazaar");
    EXPECT_STREQ(h265_user_data_name(unregistered(of_microseconds, {})),
                 "MISP time in microseconds");
    EXPECT_STREQ(h265_user_data_name(unregistered(of_microseconds_in_avc(), {})),
                 "MISP time in microseconds");
    EXPECT_STREQ(h265_user_data_name(unregistered(of_nanoseconds, {})), "MISP time in nanoseconds");
}

TEST(H265UnregisteredUserData, HasNoNameForAnotherUuid) {
    EXPECT_STREQ(h265_user_data_name(unregistered({}, {})), "");
    uuid off_by_one = of_x265;
    ++off_by_one.back();
    EXPECT_STREQ(h265_user_data_name(unregistered(off_by_one, {})), "");
}

TEST(H265UnregisteredUserData, IsTextWhoeverWroteIt) {
    EXPECT_EQ(h265_user_data_text(with_text("encoder 1.0 - options: a=1\tb=2\r\n")),
              "encoder 1.0 - options: a=1\tb=2\r\n");
    EXPECT_EQ(h265_user_data_text(with_text(" ~")), " ~");
}

TEST(H265UnregisteredUserData, ZeroBytesAtTheEndAreNoText) {
    EXPECT_EQ(h265_user_data_text(with_text(std::string("abc\0\0", 5))), "abc");
    EXPECT_EQ(h265_user_data_text(with_text(std::string("\0\0", 2))), "");
    EXPECT_EQ(h265_user_data_text(with_text("")), "");
}

TEST(H265UnregisteredUserData, IsNoTextWithAnyOtherByte) {
    EXPECT_EQ(h265_user_data_text(with_text(std::string("a\0b", 3))), "");
    EXPECT_EQ(h265_user_data_text(with_text("a\x1b[2J")), "");
    EXPECT_EQ(h265_user_data_text(with_text("a\x7f")), "");
    EXPECT_EQ(h265_user_data_text(with_text("caf\xc3\xa9")), "");
    EXPECT_EQ(h265_user_data_text(with_text("\x08")), "");
    EXPECT_EQ(h265_user_data_text(with_text("\x0e")), "");
}

// 2020-01-01 00:00:00 UTC is 1577836800 seconds, 1577836800000000 = 0x00059b08c1fa4000.
TEST(H265UnregisteredUserData, TellsThePrecisionTimeStamp) {
    const std::vector<unsigned char> bytes = {0x1f, 0x00, 0x05, 0xff, 0x9b, 0x08,
                                              0xff, 0xc1, 0xfa, 0xff, 0x40, 0x00};
    EXPECT_EQ(h265_misp_time(unregistered(of_microseconds, bytes)), 0x00059b08c1fa4000U);
    EXPECT_EQ(h265_misp_time(unregistered(of_microseconds_in_avc(), bytes)), 0x00059b08c1fa4000U);
    EXPECT_EQ(h265_misp_time(unregistered(of_nanoseconds, bytes)), 0x00059b08c1fa4000U);
}

TEST(H265UnregisteredUserData, HasNoTimeUnderAnotherUuidOrWhenCutOff) {
    std::vector<unsigned char> bytes(12, 1);
    EXPECT_TRUE(h265_misp_time(unregistered(of_microseconds, bytes)).has_value());
    EXPECT_FALSE(h265_misp_time(unregistered(of_x265, bytes)).has_value());
    bytes.pop_back();
    EXPECT_FALSE(h265_misp_time(unregistered(of_microseconds, bytes)).has_value());
}

}  // namespace
}  // namespace kovran
