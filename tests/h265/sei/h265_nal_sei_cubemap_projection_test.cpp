#include <kovran/h265/sei/h265_nal_sei_cubemap_projection.h>

#include <gtest/gtest.h>

#include "support/sei_payload.h"
#include "support/sei_record_parsing.h"

namespace kovran {
namespace {

TEST(H265NalSeiCubemapProjection, LastsUntilTheNext) {
    const auto projection =
        test::record_of<h265_nal_sei_cubemap_projection>("0 1",
                                                         "cmp_cancel_flag 0\n"
                                                         "cmp_persistence_flag 1\n");
    EXPECT_TRUE(projection.cmp_persistence_flag);
}

TEST(H265NalSeiCubemapProjection, EndsAnEarlierOne) {
    const auto projection =
        test::record_of<h265_nal_sei_cubemap_projection>("1", "cmp_cancel_flag 1\n");
    EXPECT_TRUE(projection.cmp_cancel_flag);
    EXPECT_FALSE(projection.cmp_persistence_flag);
}

TEST(H265NalSeiCubemapProjection, IsParsedAlone) {
    const auto parsed = test::parsed_alone<h265_nal_sei_cubemap_projection>("0 1");
    EXPECT_EQ(parsed.element_count, 2U);
    EXPECT_TRUE(parsed.record.cmp_persistence_flag);
    EXPECT_TRUE(parsed.untraced.cmp_persistence_flag);
}

}  // namespace
}  // namespace kovran
