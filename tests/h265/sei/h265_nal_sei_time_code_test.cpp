#include <kovran/h265/sei/h265_nal_sei_time_code.h>

#include <string>

#include <gtest/gtest.h>

#include "support/sei_payload.h"
#include "support/sei_record_parsing.h"

namespace kovran {
namespace {

TEST(H265NalSeiTimeCode, HasWholeAndPartialTimes) {
    const auto time_code = test::record_of<h265_nal_sei_time_code>(
        "11  0"
        "1 1 00100 1 0 1 000000101 001010 000101 00011 00100 1011"
        "1 0 00001 0 1 0 100101100 1 010100 1 000111 0 00000",
        "num_clock_ts 3\n"
        "clock_timestamp_flag[0] 0\n"
        "clock_timestamp_flag[1] 1\n"
        "units_field_based_flag[1] 1\n"
        "counting_type[1] 4\n"
        "full_timestamp_flag[1] 1\n"
        "discontinuity_flag[1] 0\n"
        "cnt_dropped_flag[1] 1\n"
        "n_frames[1] 5\n"
        "seconds_value[1] 10\n"
        "minutes_value[1] 5\n"
        "hours_value[1] 3\n"
        "time_offset_length[1] 4\n"
        "time_offset_value[1] -5\n"
        "clock_timestamp_flag[2] 1\n"
        "units_field_based_flag[2] 0\n"
        "counting_type[2] 1\n"
        "full_timestamp_flag[2] 0\n"
        "discontinuity_flag[2] 1\n"
        "cnt_dropped_flag[2] 0\n"
        "n_frames[2] 300\n"
        "seconds_flag[2] 1\n"
        "seconds_value[2] 20\n"
        "minutes_flag[2] 1\n"
        "minutes_value[2] 7\n"
        "hours_flag[2] 0\n"
        "time_offset_length[2] 0\n");
    ASSERT_EQ(time_code.clock_timestamps.size(), 3U);
    EXPECT_FALSE(time_code.clock_timestamps[0].clock_timestamp_flag);
    const auto& whole = time_code.clock_timestamps[1];
    EXPECT_TRUE(whole.units_field_based_flag);
    EXPECT_EQ(whole.counting_type, 4);
    EXPECT_TRUE(whole.cnt_dropped_flag);
    EXPECT_EQ(whole.hours_value, 3);
    EXPECT_EQ(whole.time_offset_value, -5);
    const auto& partial = time_code.clock_timestamps[2];
    EXPECT_TRUE(partial.discontinuity_flag);
    EXPECT_EQ(partial.n_frames, 300);
    EXPECT_EQ(partial.minutes_value, 7);
    EXPECT_FALSE(partial.hours_flag);

    EXPECT_EQ(time_code.clock_timestamps[0].time_to_str(), "--:--:--:--");
    EXPECT_EQ(whole.time_to_str(), "03:05:10;05");
    EXPECT_EQ(partial.time_to_str(), "--:07:20:300");
}

TEST(H265NalSeiTimeCode, EndsATimeWhereAFlagIsNotSet) {
    const auto time_code = test::record_of<h265_nal_sei_time_code>(
        "11"
        "1 0 00000 0 0 0 000000001 0 00000"
        "1 0 00000 0 0 0 000000010 1 111011 0 00001 1"
        "1 0 00000 0 0 0 000000011 1 000001 1 000010 1 10111 11111 0111111111111111111111111111111",
        "num_clock_ts 3\n"
        "clock_timestamp_flag[0] 1\n"
        "units_field_based_flag[0] 0\n"
        "counting_type[0] 0\n"
        "full_timestamp_flag[0] 0\n"
        "discontinuity_flag[0] 0\n"
        "cnt_dropped_flag[0] 0\n"
        "n_frames[0] 1\n"
        "seconds_flag[0] 0\n"
        "time_offset_length[0] 0\n"
        "clock_timestamp_flag[1] 1\n"
        "units_field_based_flag[1] 0\n"
        "counting_type[1] 0\n"
        "full_timestamp_flag[1] 0\n"
        "discontinuity_flag[1] 0\n"
        "cnt_dropped_flag[1] 0\n"
        "n_frames[1] 2\n"
        "seconds_flag[1] 1\n"
        "seconds_value[1] 59\n"
        "minutes_flag[1] 0\n"
        "time_offset_length[1] 1\n"
        "time_offset_value[1] -1\n"
        "clock_timestamp_flag[2] 1\n"
        "units_field_based_flag[2] 0\n"
        "counting_type[2] 0\n"
        "full_timestamp_flag[2] 0\n"
        "discontinuity_flag[2] 0\n"
        "cnt_dropped_flag[2] 0\n"
        "n_frames[2] 3\n"
        "seconds_flag[2] 1\n"
        "seconds_value[2] 1\n"
        "minutes_flag[2] 1\n"
        "minutes_value[2] 2\n"
        "hours_flag[2] 1\n"
        "hours_value[2] 23\n"
        "time_offset_length[2] 31\n"
        "time_offset_value[2] 1073741823\n");
    ASSERT_EQ(time_code.clock_timestamps.size(), 3U);
    EXPECT_EQ(time_code.clock_timestamps[0].time_to_str(), "--:--:--:01");
    EXPECT_EQ(time_code.clock_timestamps[1].time_to_str(), "--:--:59:02");
    EXPECT_EQ(time_code.clock_timestamps[2].time_to_str(), "23:02:01:03");
    EXPECT_EQ(time_code.clock_timestamps[2].time_offset_value, 1073741823);
}

TEST(H265NalSeiTimeCode, MayHaveNoTimes) {
    EXPECT_TRUE(
        test::record_of<h265_nal_sei_time_code>("00", "num_clock_ts 0\n").clock_timestamps.empty());
}

TEST(H265NalSeiTimeCode, IsParsedAlone) {
    const auto time_code = test::parsed_alone<h265_nal_sei_time_code>("10 0 0").record;
    EXPECT_EQ(time_code.clock_timestamps.size(), 2U);
}

TEST(H265NalSeiTimeCode, HasTimesOfADay) {
    const std::string stamp = "01 1 0 00000 1 0 0 000000000";
    EXPECT_EQ(test::out_of_range<h265_nal_sei_time_code>(stamp + "111011 111011 10111 00000"), "");
    EXPECT_EQ(test::out_of_range<h265_nal_sei_time_code>(stamp + "111100 111100 11000 00000"),
              "seconds_value[0], minutes_value[0], hours_value[0]");
}

TEST(H265NalSeiTimeCode, HasPartsOfTimesOfADay) {
    const std::string stamp = "01 1 0 00000 0 0 0 000000000";
    EXPECT_EQ(test::out_of_range<h265_nal_sei_time_code>(stamp + "1 111011 1 111011 1 10111 00000"),
              "");
    EXPECT_EQ(test::out_of_range<h265_nal_sei_time_code>(stamp + "1 111100 1 111100 1 11000 00000"),
              "seconds_value[0], minutes_value[0], hours_value[0]");
}

}  // namespace
}  // namespace kovran
