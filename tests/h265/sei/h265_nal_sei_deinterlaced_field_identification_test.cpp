#include <kovran/h265/sei/h265_nal_sei_deinterlaced_field_identification.h>

#include <gtest/gtest.h>

#include "support/sei_payload.h"
#include "support/sei_record_parsing.h"

namespace kovran {
namespace {

TEST(H265NalSeiDeinterlacedFieldIdentification, IsABottomField) {
    const auto field = test::record_of<h265_nal_sei_deinterlaced_field_identification>(
        "1", "deinterlaced_picture_source_parity_flag 1\n");
    EXPECT_TRUE(field.deinterlaced_picture_source_parity_flag);
}

TEST(H265NalSeiDeinterlacedFieldIdentification, IsATopField) {
    const auto field = test::record_of<h265_nal_sei_deinterlaced_field_identification>(
        "0", "deinterlaced_picture_source_parity_flag 0\n");
    EXPECT_FALSE(field.deinterlaced_picture_source_parity_flag);
}

TEST(H265NalSeiDeinterlacedFieldIdentification, IsParsedAlone) {
    const auto parsed = test::parsed_alone<h265_nal_sei_deinterlaced_field_identification>("1");
    EXPECT_EQ(parsed.element_count, 1U);
    EXPECT_TRUE(parsed.record.deinterlaced_picture_source_parity_flag);
    EXPECT_TRUE(parsed.untraced.deinterlaced_picture_source_parity_flag);
}

}  // namespace
}  // namespace kovran
