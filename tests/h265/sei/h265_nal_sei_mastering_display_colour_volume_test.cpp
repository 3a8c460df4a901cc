#include <kovran/h265/sei/h265_nal_sei_mastering_display_colour_volume.h>

#include <gtest/gtest.h>

#include "support/sei_payload.h"
#include "support/sei_record_parsing.h"

namespace kovran {
namespace {

// The primaries of BT.2020 and D65, 0.005 to 1000 candela per square metre.
TEST(H265NalSeiMasteringDisplayColourVolume, IsThatOfADisplay) {
    const auto volume = test::record_of<h265_nal_sei_mastering_display_colour_volume>(
        "x21x34 x9bxaa x19x96 x08xfc x8ax48 x39x08 x3dx13 x40x42 x00x98x96x80 x00x00x00x32",
        "display_primaries_x[0] 8500\n"
        "display_primaries_y[0] 39850\n"
        "display_primaries_x[1] 6550\n"
        "display_primaries_y[1] 2300\n"
        "display_primaries_x[2] 35400\n"
        "display_primaries_y[2] 14600\n"
        "white_point_x 15635\n"
        "white_point_y 16450\n"
        "max_display_mastering_luminance 10000000\n"
        "min_display_mastering_luminance 50\n");
    EXPECT_EQ(volume.display_primaries_x[2], 35400);
    EXPECT_EQ(volume.display_primaries_y[1], 2300);
    EXPECT_EQ(volume.white_point_x, 15635);
    EXPECT_EQ(volume.white_point_y, 16450);
    EXPECT_EQ(volume.max_display_mastering_luminance, 10000000U);
    EXPECT_EQ(volume.min_display_mastering_luminance, 50U);
}

TEST(H265NalSeiMasteringDisplayColourVolume, IsParsedAlone) {
    const auto volume =
        test::parsed_alone<h265_nal_sei_mastering_display_colour_volume>(
            "x21x34 x9bxaa x19x96 x08xfc x8ax48 x39x08 x3dx13 x40x42 x00x98x96x80 x00x00x00x32")
            .record;
    EXPECT_EQ(volume.display_primaries_x[0], 8500);
    EXPECT_EQ(volume.min_display_mastering_luminance, 50U);
}

}  // namespace
}  // namespace kovran
