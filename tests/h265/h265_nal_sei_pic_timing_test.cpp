#include <kovran/h265/h265_nal_sei_pic_timing.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <string_view>
#include <vector>

#include "support/bit_writer.h"
#include "support/rbsp.h"
#include "support/same_fields.h"
#include "support/slice_record_fields.h"

namespace kovran {
namespace {

using values = std::vector<unsigned int>;
using sps_store = h2645_common_base_store<h265_nal_sps>;

// An SPS whose HRD parameters have the lengths 5, 6, 7 and 8, none of its presence flags and not
// `valid`: none of those matters here.
h265_nal_sps sps_with_lengths() {
    h265_nal_sps sps;
    h265_hrd_parameters& hrd = sps.vui_parameters.hrd_parameters;
    hrd.au_cpb_removal_delay_length_minus1 = 4;
    hrd.dpb_output_delay_length_minus1 = 5;
    hrd.dpb_output_delay_du_length_minus1 = 6;
    hrd.du_cpb_removal_delay_increment_length_minus1 = 7;
    return sps;
}

h265_nal_sps sps_with_delays() {
    h265_nal_sps sps = sps_with_lengths();
    sps.vui_parameters.hrd_parameters.nal_hrd_parameters_present_flag = true;
    return sps;
}

h265_nal_sps sps_with_decoding_units() {
    h265_nal_sps sps = sps_with_delays();
    sps.vui_parameters.hrd_parameters.sub_pic_hrd_params_present_flag = true;
    return sps;
}

// au_cpb_removal_delay_minus1, pic_dpb_output_delay, pic_dpb_output_du_delay for those lengths.
test::bit_writer delays() {
    return test::bit_writer().u<5>(17).u<6>(33).u<7>(65);
}

h265_nal_sei_pic_timing used_record() {
    h265_nal_sei_pic_timing timing;
    timing.pic_struct = 11;
    timing.source_scan_type = 2;
    timing.duplicate_flag = true;
    timing.au_cpb_removal_delay_minus1 = 101;
    timing.pic_dpb_output_delay = 102;
    timing.pic_dpb_output_du_delay = 103;
    timing.num_decoding_units_minus1 = 1;
    timing.du_common_cpb_removal_delay_flag = true;
    timing.du_common_cpb_removal_delay_increment_minus1 = 104;
    timing.num_nalus_in_du_minus1 = {105, 106};
    timing.du_cpb_removal_delay_increment_minus1 = {107, 108};
    timing.du_info_present = true;
    timing.cpb_dpb_delays_present = true;
    timing.valid = true;
    return timing;
}

bool parse(h265_nal_sei_pic_timing& timing, const h265_nal_sps& sps, const test::bit_writer& bits) {
    test::bit_writer followed = bits;
    followed.u<8>(0xFF);
    test::rbsp input{followed.bytes()};
    const bool result = timing.parse(input.reader, sps);
    EXPECT_EQ(input.reader.bit_position(), bits.size());
    return result;
}

TEST(H265NalSeiPicTiming, ReadsNothingWithoutFrameFieldInfoAndHrd) {
    h265_nal_sei_pic_timing timing;
    EXPECT_TRUE(parse(timing, h265_nal_sps(), test::bit_writer()));
    h265_nal_sei_pic_timing expected;
    expected.valid = true;
    EXPECT_TRUE(test::same_fields(timing, expected));
}

TEST(H265NalSeiPicTiming, ReadsFrameFieldInfo) {
    h265_nal_sps sps;
    sps.vui_parameters.frame_field_info_present_flag = true;
    h265_nal_sei_pic_timing timing;
    EXPECT_TRUE(parse(timing, sps, test::bit_writer().u<4>(9).u<2>(1).u<1>(1)));
    EXPECT_EQ(timing.pic_struct, 9);
    EXPECT_EQ(timing.source_scan_type, 1);
    EXPECT_TRUE(timing.duplicate_flag);
    EXPECT_FALSE(timing.cpb_dpb_delays_present);
    EXPECT_FALSE(timing.du_info_present);
    EXPECT_TRUE(timing.valid);

    EXPECT_TRUE(parse(timing, sps, test::bit_writer().u<4>(15).u<2>(3).u<1>(0)));
    EXPECT_EQ(timing.pic_struct, 15);
    EXPECT_EQ(timing.source_scan_type, 3);
    EXPECT_FALSE(timing.duplicate_flag);
}

TEST(H265NalSeiPicTiming, KeepsEverythingThatIsAbsentButCpbDpbDelaysPresent) {
    h265_nal_sei_pic_timing timing = used_record();
    timing.valid = false;
    EXPECT_TRUE(parse(timing, h265_nal_sps(), test::bit_writer()));
    h265_nal_sei_pic_timing expected = used_record();
    expected.cpb_dpb_delays_present = false;
    EXPECT_TRUE(test::same_fields(timing, expected));
}

TEST(H265NalSeiPicTiming, ReadsDelaysWithEitherHrd) {
    for (const bool vcl : {false, true}) {
        h265_nal_sps sps = sps_with_lengths();
        h265_hrd_parameters& hrd = sps.vui_parameters.hrd_parameters;
        (vcl ? hrd.vcl_hrd_parameters_present_flag : hrd.nal_hrd_parameters_present_flag) = true;
        h265_nal_sei_pic_timing timing;
        EXPECT_TRUE(parse(timing, sps, test::bit_writer().u<5>(17).u<6>(33)));
        EXPECT_TRUE(timing.cpb_dpb_delays_present);
        EXPECT_EQ(timing.au_cpb_removal_delay_minus1, 17U);
        EXPECT_EQ(timing.pic_dpb_output_delay, 33U);
        EXPECT_EQ(timing.pic_dpb_output_du_delay, 0U);
        EXPECT_FALSE(timing.du_info_present);
        EXPECT_TRUE(timing.valid);
    }
}

TEST(H265NalSeiPicTiming, ReadsDelaysAfterFrameFieldInfo) {
    h265_nal_sps sps = sps_with_delays();
    sps.vui_parameters.hrd_parameters.vcl_hrd_parameters_present_flag = true;
    sps.vui_parameters.frame_field_info_present_flag = true;
    h265_nal_sei_pic_timing timing;
    EXPECT_TRUE(parse(timing, sps, test::bit_writer().u<4>(1).u<2>(0).u<1>(0).u<5>(3).u<6>(4)));
    EXPECT_EQ(timing.pic_struct, 1);
    EXPECT_EQ(timing.au_cpb_removal_delay_minus1, 3U);
    EXPECT_EQ(timing.pic_dpb_output_delay, 4U);
}

TEST(H265NalSeiPicTiming, ReadsNoDecodingUnitsWithoutAnHrd) {
    h265_nal_sps sps = sps_with_lengths();
    sps.vui_parameters.hrd_parameters.sub_pic_hrd_params_present_flag = true;
    sps.vui_parameters.hrd_parameters.sub_pic_cpb_params_in_pic_timing_sei_flag = true;
    h265_nal_sei_pic_timing timing;
    EXPECT_TRUE(parse(timing, sps, test::bit_writer()));
    EXPECT_FALSE(timing.cpb_dpb_delays_present);
    EXPECT_FALSE(timing.du_info_present);
}

TEST(H265NalSeiPicTiming, ReadsDecodingUnitsWithEitherFlag) {
    for (const bool in_pic_timing_sei : {false, true}) {
        h265_nal_sps sps = sps_with_decoding_units();
        sps.vui_parameters.hrd_parameters.sub_pic_cpb_params_in_pic_timing_sei_flag =
            in_pic_timing_sei;
        h265_nal_sei_pic_timing timing;
        EXPECT_TRUE(parse(timing, sps, delays().ue(0).u<1>(0).ue(6)));
        EXPECT_EQ(timing.au_cpb_removal_delay_minus1, 17U);
        EXPECT_EQ(timing.pic_dpb_output_delay, 33U);
        EXPECT_EQ(timing.pic_dpb_output_du_delay, 65U);
        EXPECT_TRUE(timing.du_info_present);
        EXPECT_EQ(timing.num_nalus_in_du_minus1, values{6});
        EXPECT_TRUE(timing.valid);
    }

    h265_nal_sps sps = sps_with_delays();
    sps.vui_parameters.hrd_parameters.sub_pic_cpb_params_in_pic_timing_sei_flag = true;
    h265_nal_sei_pic_timing timing;
    EXPECT_TRUE(parse(timing, sps, test::bit_writer().u<5>(17).u<6>(33).ue(0).u<1>(0).ue(6)));
    EXPECT_EQ(timing.pic_dpb_output_du_delay, 0U);
    EXPECT_TRUE(timing.du_info_present);
    EXPECT_EQ(timing.num_nalus_in_du_minus1, values{6});
}

TEST(H265NalSeiPicTiming, ReadsAnIncrementForEachDecodingUnitButTheLast) {
    test::bit_writer bits = delays();
    bits.ue(2).u<1>(0);     // num_decoding_units_minus1, du_common_cpb_removal_delay_flag
    bits.ue(4).u<8>(0xA1);  // num_nalus_in_du_minus1, du_cpb_removal_delay_increment_minus1
    bits.ue(5).u<8>(0xA2);
    bits.ue(6);
    h265_nal_sei_pic_timing timing;
    EXPECT_TRUE(parse(timing, sps_with_decoding_units(), bits));
    EXPECT_EQ(timing.num_decoding_units_minus1, 2U);
    EXPECT_FALSE(timing.du_common_cpb_removal_delay_flag);
    EXPECT_EQ(timing.du_common_cpb_removal_delay_increment_minus1, 0U);
    EXPECT_EQ(timing.num_nalus_in_du_minus1, (values{4, 5, 6}));
    EXPECT_EQ(timing.du_cpb_removal_delay_increment_minus1, (values{0xA1, 0xA2, 0}));
}

TEST(H265NalSeiPicTiming, ReadsACommonIncrementInPlaceOfThem) {
    test::bit_writer bits = delays();
    bits.ue(2).u<1>(1).u<8>(0xC3);  // num_decoding_units_minus1, flag, common increment
    bits.ue(4).ue(5).ue(6);         // num_nalus_in_du_minus1
    h265_nal_sei_pic_timing timing;
    EXPECT_TRUE(parse(timing, sps_with_decoding_units(), bits));
    EXPECT_TRUE(timing.du_common_cpb_removal_delay_flag);
    EXPECT_EQ(timing.du_common_cpb_removal_delay_increment_minus1, 0xC3U);
    EXPECT_EQ(timing.num_nalus_in_du_minus1, (values{4, 5, 6}));
    EXPECT_EQ(timing.du_cpb_removal_delay_increment_minus1, (values{0, 0, 0}));
}

TEST(H265NalSeiPicTiming, KeepsAndFillsTheArraysWhenParsedAgain) {
    h265_nal_sei_pic_timing timing = used_record();
    EXPECT_TRUE(
        parse(timing, sps_with_decoding_units(), delays().ue(2).u<1>(1).u<8>(1).ue(4).ue(5).ue(6)));
    EXPECT_EQ(timing.num_nalus_in_du_minus1, (values{4, 5, 6}));
    EXPECT_EQ(timing.du_cpb_removal_delay_increment_minus1, (values{107, 108, 0}));

    EXPECT_TRUE(parse(timing, sps_with_decoding_units(), delays().ue(0).u<1>(0).ue(9)));
    EXPECT_EQ(timing.num_nalus_in_du_minus1, values{9});
    EXPECT_EQ(timing.du_cpb_removal_delay_increment_minus1, values{107});
    EXPECT_EQ(timing.du_common_cpb_removal_delay_increment_minus1, 1U);
}

TEST(H265NalSeiPicTiming, KeepsDuInfoPresentAfterAMessageWithoutIt) {
    h265_nal_sei_pic_timing timing;
    EXPECT_TRUE(parse(timing, sps_with_decoding_units(), delays().ue(0).u<1>(0).ue(6)));
    EXPECT_TRUE(timing.du_info_present);
    EXPECT_TRUE(parse(timing, sps_with_delays(), test::bit_writer().u<5>(1).u<6>(2)));
    EXPECT_TRUE(timing.du_info_present);
    EXPECT_TRUE(parse(timing, h265_nal_sps(), test::bit_writer()));
    EXPECT_TRUE(timing.du_info_present);
    EXPECT_EQ(timing.num_nalus_in_du_minus1, values{6});
}

TEST(H265NalSeiPicTiming, ReadsEveryLengthUpTo32Bits) {
    for (unsigned int length = 1; length <= 32; ++length) {
        h265_nal_sps sps = sps_with_decoding_units();
        h265_hrd_parameters& hrd = sps.vui_parameters.hrd_parameters;
        const auto length_minus1 = static_cast<unsigned char>(length - 1);
        hrd.au_cpb_removal_delay_length_minus1 = length_minus1;
        hrd.dpb_output_delay_length_minus1 = length_minus1;
        hrd.dpb_output_delay_du_length_minus1 = length_minus1;
        hrd.du_cpb_removal_delay_increment_length_minus1 = length_minus1;
        const unsigned int ones = 0xFFFFFFFF >> (32 - length);
        const unsigned int mixed = 0x9A5C63E1 >> (32 - length);

        test::bit_writer bits;
        bits.u(length, mixed).u(length, ones).u(length, 1);
        bits.ue(1).u<1>(0);
        bits.ue(2).u(length, mixed).ue(3);
        h265_nal_sei_pic_timing timing;
        EXPECT_TRUE(parse(timing, sps, bits));
        EXPECT_EQ(timing.au_cpb_removal_delay_minus1, mixed);
        EXPECT_EQ(timing.pic_dpb_output_delay, ones);
        EXPECT_EQ(timing.pic_dpb_output_du_delay, 1U);
        EXPECT_EQ(timing.du_cpb_removal_delay_increment_minus1, (values{mixed, 0}));
        EXPECT_EQ(timing.num_nalus_in_du_minus1, (values{2, 3}));

        bits = test::bit_writer();
        bits.u(length, 0).u(length, 0).u(length, 0);
        bits.ue(0).u<1>(1).u(length, mixed).ue(4);
        EXPECT_TRUE(parse(timing, sps, bits));
        EXPECT_EQ(timing.du_common_cpb_removal_delay_increment_minus1, mixed);
    }
}

TEST(H265NalSeiPicTiming, TakesUpTo128DecodingUnits) {
    test::bit_writer bits = delays();
    bits.ue(127).u<1>(0);
    for (unsigned int i = 0; i < 127; ++i) {
        bits.ue(i).u<8>(255 - i);
    }
    bits.ue(127);
    h265_nal_sei_pic_timing timing;
    EXPECT_TRUE(parse(timing, sps_with_decoding_units(), bits));
    ASSERT_EQ(timing.num_nalus_in_du_minus1.size(), 128U);
    ASSERT_EQ(timing.du_cpb_removal_delay_increment_minus1.size(), 128U);
    EXPECT_EQ(timing.num_nalus_in_du_minus1[127], 127U);
    EXPECT_EQ(timing.du_cpb_removal_delay_increment_minus1[126], 129U);
    EXPECT_EQ(timing.du_cpb_removal_delay_increment_minus1[127], 0U);
}

TEST(H265NalSeiPicTiming, RejectsMoreDecodingUnitsWithoutTouchingValid) {
    for (const unsigned int num_decoding_units_minus1 : {128U, 1000000U, 0xFFFFFFFEU}) {
        for (const bool valid_before : {false, true}) {
            h265_nal_sei_pic_timing timing = used_record();
            timing.valid = valid_before;
            EXPECT_FALSE(parse(timing, sps_with_decoding_units(),
                               delays().ue(num_decoding_units_minus1).u<1>(1).u<8>(0xC3)));
            h265_nal_sei_pic_timing expected = used_record();
            expected.au_cpb_removal_delay_minus1 = 17;
            expected.pic_dpb_output_delay = 33;
            expected.pic_dpb_output_du_delay = 65;
            expected.num_decoding_units_minus1 = num_decoding_units_minus1;
            expected.du_common_cpb_removal_delay_increment_minus1 = 0xC3;
            expected.valid = valid_before;
            EXPECT_TRUE(test::same_fields(timing, expected)) << num_decoding_units_minus1;
        }
    }
}

TEST(H265NalSeiPicTiming, SetsDuInfoPresentBeforeItRejects) {
    h265_nal_sei_pic_timing timing;
    EXPECT_FALSE(parse(timing, sps_with_decoding_units(), delays().ue(128).u<1>(0)));
    EXPECT_TRUE(timing.du_info_present);
    EXPECT_TRUE(timing.cpb_dpb_delays_present);
    EXPECT_FALSE(timing.valid);
}

TEST(H265NalSeiPicTiming, ReadsZerosBehindTheEnd) {
    h265_nal_sps sps = sps_with_delays();
    sps.vui_parameters.frame_field_info_present_flag = true;
    test::rbsp input{0b1010'01'1'1};
    h265_nal_sei_pic_timing timing;
    EXPECT_TRUE(timing.parse(input.reader, sps));
    EXPECT_EQ(timing.pic_struct, 10);
    EXPECT_EQ(timing.au_cpb_removal_delay_minus1, 16U);
    EXPECT_EQ(timing.pic_dpb_output_delay, 0U);
    EXPECT_TRUE(timing.valid);
}

// ---- Through the store

TEST(H265NalSeiPicTiming, TakesTheActiveSpsOfAStore) {
    sps_store store;
    store[0];
    store[3] = sps_with_delays();
    store.active_id = 3;
    test::rbsp input{test::bit_writer().u<5>(17).u<6>(33).bytes()};
    h265_nal_sei_pic_timing timing;
    EXPECT_TRUE(timing.parse(input.reader, store));
    EXPECT_EQ(timing.au_cpb_removal_delay_minus1, 17U);
    EXPECT_EQ(timing.pic_dpb_output_delay, 33U);
    EXPECT_TRUE(timing.valid);
    EXPECT_EQ(input.reader.bit_position(), 11U);
    EXPECT_EQ(store.size(), 2U);
}

TEST(H265NalSeiPicTiming, FailsWhenNoSpsIsActive) {
    sps_store store;
    store[0] = sps_with_delays();
    test::rbsp input{0xFF, 0xFF};
    h265_nal_sei_pic_timing timing = used_record();
    EXPECT_FALSE(timing.parse(input.reader, store));
    h265_nal_sei_pic_timing expected = used_record();
    expected.valid = false;
    EXPECT_TRUE(test::same_fields(timing, expected));
    EXPECT_EQ(input.reader.bit_position(), 0U);
    EXPECT_EQ(store.size(), 1U);
}

// 0xFFFFFFFF stands for none, and not for a record that a host keeps under it.
TEST(H265NalSeiPicTiming, TakesNoRecordUnderTheIdentifierOfNone) {
    sps_store store;
    store[0xFFFFFFFF] = sps_with_delays();
    test::rbsp input{0xFF, 0xFF};
    h265_nal_sei_pic_timing timing;
    EXPECT_FALSE(timing.parse(input.reader, store));
    EXPECT_EQ(input.reader.bit_position(), 0U);
}

TEST(H265NalSeiPicTiming, FailsWhenTheActiveSpsIsNotThere) {
    sps_store store;
    store[0] = sps_with_delays();
    store[1] = sps_with_delays();
    store.active_id = 3;
    test::rbsp input{0xFF, 0xFF};
    h265_nal_sei_pic_timing timing = used_record();
    EXPECT_NO_THROW(EXPECT_FALSE(timing.parse(input.reader, store)));
    EXPECT_FALSE(timing.valid);
    EXPECT_EQ(input.reader.bit_position(), 0U);
    EXPECT_EQ(store.size(), 2U);
}

TEST(H265NalSeiPicTiming, KeepsValidWhenTheActiveSpsCannotBeFollowed) {
    sps_store store;
    store[3] = sps_with_decoding_units();
    store.active_id = 3;
    test::rbsp input{delays().ue(128).u<1>(0).bytes()};
    h265_nal_sei_pic_timing timing = used_record();
    EXPECT_FALSE(timing.parse(input.reader, store));
    EXPECT_TRUE(timing.valid);
}

// ---- Texts

TEST(H265NalSeiPicTiming, NamesEachPicStruct) {
    constexpr std::string_view names[] = {
        "Progressive frame",
        "Top field",
        "Bottom field",
        "Top field, bottom field, in that order",
        "Bottom field, top field, in that order",
        "Top field, bottom field, top field repeated, in that order",
        "Bottom field, top field, bottom field repeated, in that order",
        "Frame doubling",
        "Frame tripling",
        "Top field paired with previous bottom field in output order",
        "Bottom field paired with previous top field in output order",
        "Top field paired with next bottom field in output order",
        "Bottom field paired with next top field in output order",
    };
    h265_nal_sei_pic_timing timing;
    for (unsigned int value = 0; value < 256; ++value) {
        timing.pic_struct = static_cast<unsigned char>(value);
        EXPECT_EQ(timing.pic_struct_to_str(), value < 13 ? names[value] : "?") << value;
    }
}

TEST(H265NalSeiPicTiming, NamesEachSourceScanType) {
    constexpr std::string_view names[] = {"interlaced", "progressive", "unknown"};
    h265_nal_sei_pic_timing timing;
    for (unsigned int value = 0; value < 256; ++value) {
        timing.source_scan_type = static_cast<unsigned char>(value);
        EXPECT_EQ(timing.source_scan_type_to_str(), value < 3 ? names[value] : "?") << value;
    }
}

}  // namespace
}  // namespace kovran
