#include <kovran/h265/sei/h265_nal_sei_recovery_point.h>

#include <gtest/gtest.h>

#include "support/sei_payload.h"

namespace kovran {
namespace {

TEST(RecoveryPoint, CountsBackwards) {
    const auto point = test::record_of<h265_nal_sei_recovery_point>(  //
        "00111 1 0",                                                  //
        "recovery_poc_cnt -3\n"
        "exact_match_flag 1\n"
        "broken_link_flag 0\n");
    EXPECT_EQ(point.recovery_poc_cnt, -3);
    EXPECT_TRUE(point.exact_match_flag);
    EXPECT_FALSE(point.broken_link_flag);
}

TEST(RecoveryPoint, HasABrokenLink) {
    const auto point = test::record_of<h265_nal_sei_recovery_point>(  //
        "1 0 1",                                                      //
        "recovery_poc_cnt 0\n"
        "exact_match_flag 0\n"
        "broken_link_flag 1\n");
    EXPECT_TRUE(point.broken_link_flag);
}

// se(v): 65535 stands for 32768, which is one too many.
TEST(RecoveryPoint, CountsUpTo32767) {
    const test::sei_reading reading =
        test::read_payload(6, test::bytes_of("0000 0000 0000 0000 1000 0000 0000 0000 0 1 1"));
    EXPECT_TRUE(reading.read);
}

}  // namespace
}  // namespace kovran
