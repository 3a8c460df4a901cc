#include <kovran/h265/sei/h265_nal_sei_content_light_level_info.h>

#include <gtest/gtest.h>

#include "support/sei_payload.h"
#include "support/sei_record_parsing.h"

namespace kovran {
namespace {

TEST(H265NalSeiContentLightLevelInfo, HasTwoLevels) {
    const auto light = test::record_of<h265_nal_sei_content_light_level_info>(
        "x03xe8 x81x23",
        "max_content_light_level 1000\n"
        "max_pic_average_light_level 33059\n");
    EXPECT_EQ(light.max_content_light_level, 1000);
    EXPECT_EQ(light.max_pic_average_light_level, 0x8123);
}

TEST(H265NalSeiContentLightLevelInfo, IsParsedAlone) {
    const auto parsed = test::parsed_alone<h265_nal_sei_content_light_level_info>("x03xe8 x81x23");
    EXPECT_EQ(parsed.element_count, 2U);
    EXPECT_EQ(parsed.record.max_content_light_level, 1000);
    EXPECT_EQ(parsed.untraced.max_content_light_level, 1000);
}

}  // namespace
}  // namespace kovran
