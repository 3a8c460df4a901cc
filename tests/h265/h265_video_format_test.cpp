#include <kovran/h265/h265_video_format.h>
#include <kovran/h265/h265_vui_parameters.h>

#include <gtest/gtest.h>

#include <type_traits>

namespace kovran {
namespace {

TEST(H265VideoFormat, HasTheValuesOfItsTable) {
    static_assert(std::is_same_v<std::underlying_type_t<h265_video_format>, unsigned int>);
    static_assert(h265_video_format_component == 0);
    static_assert(h265_video_format_pal == 1);
    static_assert(h265_video_format_ntsc == 2);
    static_assert(h265_video_format_secam == 3);
    static_assert(h265_video_format_mac == 4);
    static_assert(h265_video_format_unspecified == 5);
}

TEST(H265VideoFormat, HasAName) {
    EXPECT_STREQ(h265_video_format_to_str(h265_video_format_component), "Component");
    EXPECT_STREQ(h265_video_format_to_str(h265_video_format_pal), "PAL");
    EXPECT_STREQ(h265_video_format_to_str(h265_video_format_ntsc), "NTSC");
    EXPECT_STREQ(h265_video_format_to_str(h265_video_format_secam), "SECAM");
    EXPECT_STREQ(h265_video_format_to_str(h265_video_format_mac), "MAC");
    EXPECT_STREQ(h265_video_format_to_str(h265_video_format_unspecified), "Unspecified");
}

TEST(H265VideoFormat, IsAQuestionMarkBeyondItsTable) {
    for (const unsigned int value : {6U, 7U, 8U, 255U, 256U, 0x80000000U, 0xFFFFFFFFU}) {
        EXPECT_STREQ(h265_video_format_to_str(static_cast<h265_video_format>(value)), "?") << value;
    }
}

TEST(H265VideoFormat, IsNamedByTheVuiThatHoldsIt) {
    h265_vui_parameters vui;
    EXPECT_STREQ(vui.video_format_to_str(), "Component");
    vui.video_format = 3;
    EXPECT_STREQ(vui.video_format_to_str(), "SECAM");
    for (const unsigned int reserved : {6U, 7U, 255U}) {
        vui.video_format = static_cast<unsigned char>(reserved);
        EXPECT_STREQ(vui.video_format_to_str(), "?") << reserved;
    }
}

}  // namespace
}  // namespace kovran
