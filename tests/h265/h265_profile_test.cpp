#include <kovran/h265/h265_profile.h>

#include <gtest/gtest.h>

namespace kovran {
namespace {

h265_profile::level_decomposed decompose(unsigned char level_idc) {
    h265_profile::level_decomposed level{};
    level.parse(level_idc);
    return level;
}

void expect_level(unsigned char level_idc, int major, int minor, int remainder) {
    const h265_profile::level_decomposed level = decompose(level_idc);
    EXPECT_EQ(level.major, major) << int{level_idc};
    EXPECT_EQ(level.minor, minor) << int{level_idc};
    EXPECT_EQ(level.remainder, remainder) << int{level_idc};
}

TEST(H265Profile, TakesTheLevelsOfTheStandardApart) {
    expect_level(30, 1, 0, 0);
    expect_level(60, 2, 0, 0);
    expect_level(63, 2, 1, 0);
    expect_level(90, 3, 0, 0);
    expect_level(93, 3, 1, 0);
    expect_level(120, 4, 0, 0);
    expect_level(123, 4, 1, 0);
    expect_level(150, 5, 0, 0);
    expect_level(153, 5, 1, 0);
    expect_level(156, 5, 2, 0);
    expect_level(180, 6, 0, 0);
    expect_level(183, 6, 1, 0);
    expect_level(186, 6, 2, 0);
}

TEST(H265Profile, TakesLevelsApartThatAreNotTheStandards) {
    expect_level(0, 0, 0, 0);
    expect_level(1, 0, 0, 1);
    expect_level(2, 0, 0, 2);
    expect_level(3, 0, 1, 0);
    expect_level(29, 0, 9, 2);
    expect_level(31, 1, 0, 1);
    expect_level(254, 8, 4, 2);
    expect_level(255, 8, 5, 0);
}

TEST(H265Profile, PutsEveryLevelTogetherAgain) {
    for (unsigned int level_idc = 0; level_idc < 256; ++level_idc) {
        const h265_profile::level_decomposed level =
            decompose(static_cast<unsigned char>(level_idc));
        EXPECT_LT(level.minor, 10);
        EXPECT_LT(level.remainder, 3);
        EXPECT_EQ(level.major * 30U + level.minor * 3U + level.remainder, level_idc);
    }
}

TEST(H265Profile, OverwritesAnEarlierLevel) {
    h265_profile::level_decomposed level{9, 9, 9};
    level.parse(93);
    EXPECT_EQ(level.major, 3);
    EXPECT_EQ(level.minor, 1);
    EXPECT_EQ(level.remainder, 0);
}

}  // namespace
}  // namespace kovran
