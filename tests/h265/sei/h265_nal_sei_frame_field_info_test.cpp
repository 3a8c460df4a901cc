#include <kovran/h265/sei/h265_nal_sei_frame_field_info.h>

#include <gtest/gtest.h>

#include "support/sei_payload.h"
#include "support/sei_record_parsing.h"

namespace kovran {
namespace {

TEST(H265NalSeiFrameFieldInfo, IsThatOfAField) {
    const auto info = test::record_of<h265_nal_sei_frame_field_info>("1100 10 1",
                                                                     "ffinfo_pic_struct 12\n"
                                                                     "ffinfo_source_scan_type 2\n"
                                                                     "ffinfo_duplicate_flag 1\n");
    EXPECT_EQ(info.ffinfo_pic_struct, 12);
    EXPECT_EQ(info.ffinfo_source_scan_type, 2);
    EXPECT_TRUE(info.ffinfo_duplicate_flag);
}

TEST(H265NalSeiFrameFieldInfo, HasReservedValues) {
    EXPECT_EQ(test::out_of_range<h265_nal_sei_frame_field_info>("1100 10 0"), "");
    const auto reserved = test::parsed_alone<h265_nal_sei_frame_field_info>("1101 11 0");
    EXPECT_EQ(reserved.out_of_range, "ffinfo_pic_struct, ffinfo_source_scan_type");
    EXPECT_EQ(reserved.record.ffinfo_pic_struct, 13);
    EXPECT_EQ(reserved.record.ffinfo_source_scan_type, 3);
    EXPECT_FALSE(reserved.record.ffinfo_duplicate_flag);
}

}  // namespace
}  // namespace kovran
