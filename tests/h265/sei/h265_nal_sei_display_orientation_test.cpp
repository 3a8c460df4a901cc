#include <kovran/h265/sei/h265_nal_sei_display_orientation.h>

#include <gtest/gtest.h>

#include "support/sei_payload.h"
#include "support/sei_record_parsing.h"

namespace kovran {
namespace {

TEST(H265NalSeiDisplayOrientation, RotatesByAQuarter) {
    const auto orientation = test::record_of<h265_nal_sei_display_orientation>(  //
        "0 1 0 0100 0000 0000 0000 1",                                           //
        "display_orientation_cancel_flag 0\n"
        "hor_flip 1\n"
        "ver_flip 0\n"
        "anticlockwise_rotation 16384\n"
        "display_orientation_persistence_flag 1\n");
    EXPECT_TRUE(orientation.hor_flip);
    EXPECT_FALSE(orientation.ver_flip);
    EXPECT_EQ(orientation.anticlockwise_rotation, 16384);
    EXPECT_TRUE(orientation.display_orientation_persistence_flag);
    EXPECT_DOUBLE_EQ(orientation.anticlockwise_degrees(), 90.0);
}

TEST(H265NalSeiDisplayOrientation, EndsWhereItCancels) {
    const auto orientation = test::record_of<h265_nal_sei_display_orientation>(
        "1", "display_orientation_cancel_flag 1\n");
    EXPECT_TRUE(orientation.display_orientation_cancel_flag);
    EXPECT_DOUBLE_EQ(orientation.anticlockwise_degrees(), 0.0);
}

TEST(H265NalSeiDisplayOrientation, IsParsedAlone) {
    const auto orientation =
        test::parsed_alone<h265_nal_sei_display_orientation>("0 0 1 1111 1111 1111 1111 0").record;
    EXPECT_TRUE(orientation.ver_flip);
    EXPECT_DOUBLE_EQ(orientation.anticlockwise_degrees(), 359.9945068359375);
}

}  // namespace
}  // namespace kovran
