#include <kovran/h265/sei/h265_nal_sei_recovery_point.h>

#include <kovran/h265/h265_nal_sei_reader.h>
#include <kovran/h265/sei/h265_nal_sei_message.h>

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/sei_payload.h"
#include "support/sei_record_parsing.h"

namespace kovran {
namespace {

TEST(H265NalSeiRecoveryPoint, CountsBackwards) {
    const auto point = test::record_of<h265_nal_sei_recovery_point>(  //
        "00111 1 0",                                                  //
        "recovery_poc_cnt -3\n"
        "exact_match_flag 1\n"
        "broken_link_flag 0\n");
    EXPECT_EQ(point.recovery_poc_cnt, -3);
    EXPECT_TRUE(point.exact_match_flag);
    EXPECT_FALSE(point.broken_link_flag);
}

TEST(H265NalSeiRecoveryPoint, HasABrokenLink) {
    const auto point = test::record_of<h265_nal_sei_recovery_point>(  //
        "1 0 1",                                                      //
        "recovery_poc_cnt 0\n"
        "exact_match_flag 0\n"
        "broken_link_flag 1\n");
    EXPECT_TRUE(point.broken_link_flag);
}

TEST(H265NalSeiRecoveryPoint, Has16Bits) {
    const auto out_of_range = [](const char* recovery_poc_cnt) {
        return test::out_of_range<h265_nal_sei_recovery_point>(std::string(recovery_poc_cnt) +
                                                               "00");
    };
    EXPECT_EQ(out_of_range("0000000000000000 10000000000000001"), "");                  // -32768
    EXPECT_EQ(out_of_range("000000000000000 1111111111111110"), "");                    // 32767
    EXPECT_EQ(out_of_range("0000000000000000 10000000000000011"), "recovery_poc_cnt");  // -32769
    EXPECT_EQ(out_of_range("0000000000000000 10000000000000000"), "recovery_poc_cnt");  // 32768
}

// A preferred transfer characteristic has a byte; three bits follow it in the first message.
TEST(H265NalSeiRecoveryPoint, HasNoExtensionDataOfAMessageBefore) {
    const test::sei_stores stores;
    h265_nal_sei_message message;
    for (const char* const payload : {"x12 x10", "x12"}) {
        std::vector<unsigned char> unit = test::message_of(147, test::bytes_of(payload));
        unit.push_back(0x80);
        h265_nal_sei_reader reader(unit.data(), unit.data() + unit.size(), PREFIX_SEI_NUT);
        ASSERT_TRUE(reader.next_message());
        EXPECT_TRUE(message.parse_standard(reader, stores.vps, stores.sps));
    }
    EXPECT_TRUE(message.reserved_payload_extension_data.empty());
}

}  // namespace
}  // namespace kovran
