#include <kovran/h265/sei/h265_nal_sei_recovery_point.h>

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
        return test::parsed_alone<h265_nal_sei_recovery_point>(std::string(recovery_poc_cnt) + "00")
            .out_of_range;
    };
    const std::vector<std::string> none;
    EXPECT_EQ(out_of_range("0000000000000000 10000000000000001"), none);  // -32768
    EXPECT_EQ(out_of_range("000000000000000 1111111111111110"), none);    // 32767
    const std::vector<std::string> one = {"recovery_poc_cnt"};
    EXPECT_EQ(out_of_range("0000000000000000 10000000000000011"), one);  // -32769
    EXPECT_EQ(out_of_range("0000000000000000 10000000000000000"), one);  // 32768
}

}  // namespace
}  // namespace kovran
