#include <kovran/h265/sei/h265_t35_user_data.h>

#include <cstddef>

#include <gtest/gtest.h>

#include "support/t35_user_data.h"

namespace kovran {
namespace {

struct t35_code {
    unsigned char country;
    const char* bytes;
    unsigned short provider;
    h265_t35_kind kind;
    std::size_t data_begin;
};

TEST(H265T35UserData, IsKnownByItsCodes) {
    using kind = h265_t35_kind;
    const t35_code codes[] = {
        {0xB5, "x00x31 x47x41x39x34 x03 xff", 0x0031, kind::a53_captions, 7},
        {0xB5, "x00x31 x47x41x39x34 x06", 0x0031, kind::bar_data, 7},
        {0xB5, "x00x31 x47x41x39x34 x09", 0x0031, kind::st2094_10, 7},
        {0xB5, "x00x31 x44x54x47x31", 0x0031, kind::afd, 6},
        {0xB5, "x00x3c x00x01 x04 x01", 0x003C, kind::hdr10_plus, 5},
        {0xB5, "x00x3a x00", 0x003A, kind::sl_hdr, 3},
        {0xB5, "x00x3a x02", 0x003A, kind::sl_hdr, 3},
        {0xB5, "x00x3b x00x00x08x00", 0x003B, kind::dolby_vision_rpu, 2},
        {0xB5, "x00x90 x00x01", 0x0090, kind::smpte_other, 2},
    };
    for (const t35_code& each : codes) {
        h265_t35_user_data data;
        EXPECT_TRUE(data.parse(test::t35_user_data(each.country, each.bytes)));
        EXPECT_TRUE(data.valid);
        EXPECT_EQ(data.country, each.country);
        EXPECT_EQ(data.provider, each.provider) << each.bytes;
        EXPECT_EQ(data.kind, each.kind) << each.bytes;
        EXPECT_EQ(data.data_begin, each.data_begin) << each.bytes;
    }
}

TEST(H265T35UserData, IsOtherwiseOfAnotherKind) {
    const t35_code codes[] = {
        {0xB5, "x00x31 x47x41x39x34", 0x0031, h265_t35_kind::other, 2},
        {0xB5, "x00x31 x47x41x39x34 x04", 0x0031, h265_t35_kind::other, 2},
        {0xB5, "x00x31 x44x54x47x32", 0x0031, h265_t35_kind::other, 2},
        {0xB5, "x00x31", 0x0031, h265_t35_kind::other, 2},
        {0xB5, "x00x3c x00x03 x04 x01", 0x003C, h265_t35_kind::other, 2},
        {0xB5, "x00x3c x00x01 x05 x01", 0x003C, h265_t35_kind::other, 2},
        {0xB5, "x00x3a x01", 0x003A, h265_t35_kind::other, 2},
        {0xB5, "x58x90 x01", 0x5890, h265_t35_kind::other, 2},
        {0x26, "x00x04 x00x05", 0x0004, h265_t35_kind::other, 2},
        {0x26, "x00x3b x00x05", 0x003B, h265_t35_kind::other, 2},
        {0xB4, "x00 x50x00 x01", 0x5000, h265_t35_kind::other, 3},
    };
    for (const t35_code& each : codes) {
        h265_t35_user_data data;
        EXPECT_TRUE(data.parse(test::t35_user_data(each.country, each.bytes)));
        EXPECT_EQ(data.provider, each.provider) << each.bytes;
        EXPECT_EQ(data.kind, each.kind) << each.bytes;
        EXPECT_EQ(data.data_begin, each.data_begin) << each.bytes;
    }
}

TEST(H265T35UserData, HasTheCodeOfAProvider) {
    h265_t35_user_data data;
    EXPECT_TRUE(data.parse(test::t35_user_data(0xB5, "x00x3b")));
    for (const char* const bytes : {"", "x00"}) {
        EXPECT_FALSE(data.parse(test::t35_user_data(0xB5, bytes)));
        EXPECT_FALSE(data.valid);
        EXPECT_EQ(data.provider, 0);
        EXPECT_EQ(data.kind, h265_t35_kind::other);
    }
    EXPECT_FALSE(data.parse(test::t35_user_data(0xB4, "x00x50")));
}

TEST(H265T35UserData, HasNames) {
    EXPECT_STREQ(h265_t35_kind_name(h265_t35_kind::a53_captions), "A/53 captions");
    EXPECT_STREQ(h265_t35_kind_name(h265_t35_kind::bar_data), "bar data");
    EXPECT_STREQ(h265_t35_kind_name(h265_t35_kind::afd), "active format description");
    EXPECT_STREQ(h265_t35_kind_name(h265_t35_kind::st2094_10), "ST 2094-10");
    EXPECT_STREQ(h265_t35_kind_name(h265_t35_kind::hdr10_plus), "HDR10+");
    EXPECT_STREQ(h265_t35_kind_name(h265_t35_kind::sl_hdr), "SL-HDR");
    EXPECT_STREQ(h265_t35_kind_name(h265_t35_kind::dolby_vision_rpu), "Dolby Vision RPU");
    EXPECT_STREQ(h265_t35_kind_name(h265_t35_kind::smpte_other), "SMPTE metadata");
    EXPECT_STREQ(h265_t35_kind_name(h265_t35_kind::other), "other");
    EXPECT_STREQ(h265_t35_country_name(0xB5), "United States");
    EXPECT_STREQ(h265_t35_country_name(0x26), "China");
    EXPECT_STREQ(h265_t35_country_name(0xB4), "United Kingdom");
    EXPECT_STREQ(h265_t35_country_name(0x00), "");
    EXPECT_STREQ(h265_t35_provider_name(0xB5, 0x0031), "ATSC");
    EXPECT_STREQ(h265_t35_provider_name(0xB5, 0x003B), "Dolby");
    EXPECT_STREQ(h265_t35_provider_name(0xB4, 0x5000), "V-Nova");
    EXPECT_STREQ(h265_t35_provider_name(0x26, 0x0004), "CUVA");
    EXPECT_STREQ(h265_t35_provider_name(0x26, 0x0031), "");
    EXPECT_STREQ(h265_t35_provider_name(0xB5, 0x0001), "");
}

}  // namespace
}  // namespace kovran
