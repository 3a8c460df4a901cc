#include <kovran/h265/sei/h265_nal_sei_ambient_viewing_environment.h>

#include <gtest/gtest.h>

#include "support/sei_payload.h"
#include "support/sei_record_parsing.h"

namespace kovran {
namespace {

TEST(H265NalSeiAmbientViewingEnvironment, HasALight) {
    const auto ambient =
        test::record_of<h265_nal_sei_ambient_viewing_environment>("x80x00x00x01 x3dx13 x90x00",
                                                                  "ambient_illuminance 2147483649\n"
                                                                  "ambient_light_x 15635\n"
                                                                  "ambient_light_y 36864\n");
    EXPECT_EQ(ambient.ambient_illuminance, 0x80000001U);
    EXPECT_EQ(ambient.ambient_light_x, 15635);
    EXPECT_EQ(ambient.ambient_light_y, 0x9000);
}

TEST(H265NalSeiAmbientViewingEnvironment, IsParsedAlone) {
    const auto parsed =
        test::parsed_alone<h265_nal_sei_ambient_viewing_environment>("x80x00x00x01 x3dx13 x90x00");
    EXPECT_EQ(parsed.element_count, 3U);
    EXPECT_EQ(parsed.record.ambient_light_x, 15635);
    EXPECT_EQ(parsed.untraced.ambient_light_x, 15635);
}

TEST(H265NalSeiAmbientViewingEnvironment, IsNeverDark) {
    EXPECT_EQ(
        test::out_of_range<h265_nal_sei_ambient_viewing_environment>("x00x00x00x01 x00x00 x00x00"),
        "");
    EXPECT_EQ(
        test::out_of_range<h265_nal_sei_ambient_viewing_environment>("x00x00x00x00 x00x00 x00x00"),
        "ambient_illuminance");
}

TEST(H265NalSeiAmbientViewingEnvironment, HasCoordinatesUpTo1) {
    EXPECT_EQ(
        test::out_of_range<h265_nal_sei_ambient_viewing_environment>("x00x00x00x01 xc3x50 xc3x50"),
        "");
    EXPECT_EQ(
        test::out_of_range<h265_nal_sei_ambient_viewing_environment>("x00x00x00x01 xc3x51 xc3x51"),
        "ambient_light_x, ambient_light_y");
}

}  // namespace
}  // namespace kovran
