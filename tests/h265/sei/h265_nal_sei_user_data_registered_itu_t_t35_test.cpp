#include <kovran/h265/sei/h265_nal_sei_user_data_registered_itu_t_t35.h>

#include <vector>

#include <gtest/gtest.h>

#include "support/sei_payload.h"
#include "support/sei_record_parsing.h"

namespace kovran {
namespace {

TEST(H265NalSeiUserDataRegisteredItuTT35, TakesAllBytes) {
    const auto data = test::record_of<h265_nal_sei_user_data_registered_itu_t_t35>(  //
        "x26 x00x04x00x05",                                                          //
        "itu_t_t35_country_code 26\n"
        "itu_t_t35_payload_byte[0..3] 00040005\n",
        {}, test::payload_end::takes_all);
    EXPECT_EQ(data.itu_t_t35_country_code, 0x26);
    EXPECT_EQ(data.itu_t_t35_country_code_extension_byte, 0);
    EXPECT_EQ(data.itu_t_t35_payload_byte, (std::vector<unsigned char>{0, 4, 0, 5}));
}

TEST(H265NalSeiUserDataRegisteredItuTT35, ExtendsTheLastCountryCode) {
    const auto data = test::record_of<h265_nal_sei_user_data_registered_itu_t_t35>(  //
        "xff x01 x02",                                                               //
        "itu_t_t35_country_code ff\n"
        "itu_t_t35_country_code_extension_byte 01\n"
        "itu_t_t35_payload_byte[0..0] 02\n",
        {}, test::payload_end::takes_all);
    EXPECT_EQ(data.itu_t_t35_country_code, 0xFF);
    EXPECT_EQ(data.itu_t_t35_country_code_extension_byte, 1);
    EXPECT_EQ(data.itu_t_t35_payload_byte, (std::vector<unsigned char>{2}));
}

TEST(H265NalSeiUserDataRegisteredItuTT35, MayHaveNoBytes) {
    const auto data = test::record_of<h265_nal_sei_user_data_registered_itu_t_t35>(
        "xb5", "itu_t_t35_country_code b5\n", {}, test::payload_end::takes_all);
    EXPECT_TRUE(data.itu_t_t35_payload_byte.empty());
}

TEST(H265NalSeiUserDataRegisteredItuTT35, HasAWholeCountryCode) {
    EXPECT_EQ(test::refusal_of(4, ""),
              "the data ends before the end of itu_t_t35_country_code at bit 16");
    EXPECT_EQ(test::refusal_of(4, "xff"),
              "the data ends before the end of itu_t_t35_country_code_extension_byte at bit 24");
}

TEST(H265NalSeiUserDataRegisteredItuTT35, IsParsedAlone) {
    const auto data =
        test::parsed_alone<h265_nal_sei_user_data_registered_itu_t_t35>("xff x31").record;
    EXPECT_EQ(data.itu_t_t35_country_code_extension_byte, 0x31);
}

}  // namespace
}  // namespace kovran
