#include <kovran/h265/sei/h265_nal_sei_region_refresh_info.h>

#include <gtest/gtest.h>

#include "support/sei_payload.h"
#include "support/sei_record_parsing.h"

namespace kovran {
namespace {

TEST(H265NalSeiRegionRefreshInfo, HasAFlag) {
    EXPECT_TRUE(test::record_of<h265_nal_sei_region_refresh_info>("1", "refreshed_region_flag 1\n")
                    .refreshed_region_flag);
    EXPECT_FALSE(test::record_of<h265_nal_sei_region_refresh_info>("0", "refreshed_region_flag 0\n")
                     .refreshed_region_flag);
}

TEST(H265NalSeiRegionRefreshInfo, IsParsedAlone) {
    EXPECT_TRUE(
        test::parsed_alone<h265_nal_sei_region_refresh_info>("1").record.refreshed_region_flag);
}

}  // namespace
}  // namespace kovran
