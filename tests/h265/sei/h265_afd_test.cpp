#include <kovran/h265/sei/h265_afd.h>

#include <gtest/gtest.h>

#include "support/t35_user_data.h"

namespace kovran {
namespace {

TEST(H265Afd, HasAFormat) {
    const auto afd = test::t35_record_of<h265_afd>("x00x31 x44x54x47x31  0 1 000001 1111 1010");
    EXPECT_TRUE(afd.active_format_flag);
    EXPECT_EQ(afd.active_format, 10);
}

TEST(H265Afd, MayHaveNoFormat) {
    const auto afd = test::t35_record_of<h265_afd>("x00x31 x44x54x47x31  0 0 000001");
    EXPECT_FALSE(afd.active_format_flag);
    EXPECT_EQ(afd.active_format, 0);
}

TEST(H265Afd, IsNotReadFromOtherUserData) {
    h265_afd afd;
    EXPECT_FALSE(afd.parse(test::t35_user_data(0xB5, "x00x31 x44x54x47x32 x41 xf8")));
    EXPECT_FALSE(afd.active_format_flag);
}

}  // namespace
}  // namespace kovran
