#include <kovran/h265/sei/h265_nal_sei_content_light_level_info.h>

#include <kovran/h265/h265_trace.h>

#include <gtest/gtest.h>

#include "support/rbsp.h"
#include "support/sei_payload.h"

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

TEST(H265NalSeiContentLightLevelInfo, IsReadByItself) {
    const auto payload = test::bytes_of("x03xe8 x81x23");
    h265_nal_sei_content_light_level_info record;
    h265_fault fault;
    test::rbsp input(payload);
    EXPECT_TRUE(record.parse_standard(input.reader));
    EXPECT_TRUE(record.valid);
    EXPECT_EQ(record.max_content_light_level, 1000);
    test::rbsp traced(payload);
    h265_trace trace;
    EXPECT_TRUE(record.parse_standard(traced.reader, trace, &fault));
    EXPECT_EQ(trace.elements.size(), 2U);
    EXPECT_EQ(fault.kind, h265_fault_kind::none);
    EXPECT_EQ(record.max_content_light_level, 1000);
    test::rbsp none;
    EXPECT_FALSE(record.parse_standard(none.reader, &fault));
    EXPECT_FALSE(record.valid);
    EXPECT_NE(fault.kind, h265_fault_kind::none);
}

}  // namespace
}  // namespace kovran
