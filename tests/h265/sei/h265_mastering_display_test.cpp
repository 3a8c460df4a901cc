#include <kovran/h265/sei/h265_mastering_display.h>

#include <gtest/gtest.h>

namespace kovran {
namespace {

// BT.2020 primaries with D65, in the order green, blue, red.
h265_nal_sei_mastering_display_colour_volume wide_gamut() {
    h265_nal_sei_mastering_display_colour_volume volume;
    volume.display_primaries_x = {8500, 6550, 35400};
    volume.display_primaries_y = {39850, 2300, 14600};
    volume.white_point_x = 15635;
    volume.white_point_y = 16450;
    volume.max_display_mastering_luminance = 10000000;
    volume.min_display_mastering_luminance = 50;
    return volume;
}

void expect_wide_gamut(const h265_mastering_display& display) {
    EXPECT_DOUBLE_EQ(display.green.x, 0.17);
    EXPECT_DOUBLE_EQ(display.green.y, 0.797);
    EXPECT_DOUBLE_EQ(display.blue.x, 0.131);
    EXPECT_DOUBLE_EQ(display.blue.y, 0.046);
    EXPECT_DOUBLE_EQ(display.red.x, 0.708);
    EXPECT_DOUBLE_EQ(display.red.y, 0.292);
    EXPECT_DOUBLE_EQ(display.white_point.x, 0.3127);
    EXPECT_DOUBLE_EQ(display.white_point.y, 0.329);
    EXPECT_DOUBLE_EQ(display.max_luminance, 1000);
    EXPECT_DOUBLE_EQ(display.min_luminance, 0.005);
}

TEST(H265MasteringDisplay, HasCandelaAndCoordinates) {
    expect_wide_gamut(h265_mastering_display_of(wide_gamut()));
}

TEST(H265MasteringDisplay, TellsThePrimariesApartInEveryOrder) {
    const h265_nal_sei_mastering_display_colour_volume in_order = wide_gamut();
    constexpr unsigned char orders[5][3] = {{0, 2, 1}, {1, 0, 2}, {1, 2, 0}, {2, 0, 1}, {2, 1, 0}};
    for (const auto& order : orders) {
        h265_nal_sei_mastering_display_colour_volume volume = in_order;
        for (unsigned int c = 0; c < 3; ++c) {
            volume.display_primaries_x[c] = in_order.display_primaries_x[order[c]];
            volume.display_primaries_y[c] = in_order.display_primaries_y[order[c]];
        }
        expect_wide_gamut(h265_mastering_display_of(volume));
    }
}

}  // namespace
}  // namespace kovran
