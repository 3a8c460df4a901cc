#include <kovran/h265/sei/h265_nal_sei_sphere_rotation.h>

#include <gtest/gtest.h>

#include "support/sei_payload.h"
#include "support/sei_record_parsing.h"

namespace kovran {
namespace {

TEST(H265NalSeiSphereRotation, TurnsAllWays) {
    const auto sphere = test::record_of<h265_nal_sei_sphere_rotation>(
        "0 1 100001 xffx4cx00x00 x00x5ax00x00 x80x00x00x00",
        "sphere_rotation_cancel_flag 0\n"
        "sphere_rotation_persistence_flag 1\n"
        "sphere_rotation_reserved_zero_6bits 33\n"
        "yaw_rotation -11796480\n"
        "pitch_rotation 5898240\n"
        "roll_rotation -2147483648\n");
    EXPECT_TRUE(sphere.sphere_rotation_persistence_flag);
    EXPECT_EQ(sphere.yaw_rotation, -11796480);
    EXPECT_EQ(sphere.pitch_rotation, 5898240);
    EXPECT_EQ(sphere.roll_rotation, -2147483647 - 1);
}

TEST(H265NalSeiSphereRotation, EndsAnEarlierOne) {
    const auto sphere =
        test::record_of<h265_nal_sei_sphere_rotation>("1", "sphere_rotation_cancel_flag 1\n");
    EXPECT_TRUE(sphere.sphere_rotation_cancel_flag);
}

TEST(H265NalSeiSphereRotation, IsParsedAlone) {
    const auto parsed = test::parsed_alone<h265_nal_sei_sphere_rotation>(
        "0 1 100001 xffx4cx00x00 x00x5ax00x00 x80x00x00x00");
    EXPECT_EQ(parsed.element_count, 6U);
    EXPECT_EQ(parsed.record.pitch_rotation, 5898240);
    EXPECT_EQ(parsed.untraced.pitch_rotation, 5898240);
}

TEST(H265NalSeiSphereRotation, TurnsOnceAround) {
    EXPECT_EQ(test::out_of_range<h265_nal_sei_sphere_rotation>(
                  "0 0 000000 xffx4cx00x00 xffxa6x00x00 xffx4cx00x00"),
              "");
    EXPECT_EQ(test::out_of_range<h265_nal_sei_sphere_rotation>(
                  "0 0 000000 x00xb3xffxff x00x5ax00x00 x00xb3xffxff"),
              "");
    constexpr char all[] = "yaw_rotation, pitch_rotation, roll_rotation";
    EXPECT_EQ(test::out_of_range<h265_nal_sei_sphere_rotation>(
                  "0 0 000000 xffx4bxffxff xffxa5xffxff xffx4bxffxff"),
              all);
    EXPECT_EQ(test::out_of_range<h265_nal_sei_sphere_rotation>(
                  "0 0 000000 x00xb4x00x00 x00x5ax00x01 x00xb4x00x00"),
              all);
}

}  // namespace
}  // namespace kovran
