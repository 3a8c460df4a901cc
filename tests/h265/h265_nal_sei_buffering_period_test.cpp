#include <kovran/h265/h265_nal_sei_buffering_period.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <vector>

#include "support/bit_writer.h"
#include "support/rbsp.h"
#include "support/same_fields.h"
#include "support/slice_record_fields.h"

namespace kovran {
namespace {

using values = std::vector<unsigned int>;
using sps_store = h2645_common_base_store<h265_nal_sps>;

// SPS 0, with the lengths 5, 6 and 7 and two CPB specifications, and without any presence flag:
// those of the VUI do not matter.
sps_store store_with_lengths() {
    sps_store store;
    h265_hrd_parameters& hrd = store[0].vui_parameters.hrd_parameters;
    hrd.initial_cpb_removal_delay_length_minus1 = 4;
    hrd.au_cpb_removal_delay_length_minus1 = 5;
    hrd.dpb_output_delay_length_minus1 = 6;
    hrd.cpb_cnt_minus1 = {1};
    return store;
}

h265_hrd_parameters& hrd_of(sps_store& store) {
    return store.at(0).vui_parameters.hrd_parameters;
}

// bp_seq_parameter_set_id 0, concatenation_flag, au_cpb_removal_delay_delta_minus1: what is always
// there, without irap_cpb_params_present_flag.
test::bit_writer start_without_irap_flag() {
    return test::bit_writer().ue(0).u<1>(1).u<6>(41);
}

test::bit_writer start() {
    return test::bit_writer().ue(0).u<1>(0).u<1>(1).u<6>(41);
}

h265_nal_sei_buffering_period used_record() {
    h265_nal_sei_buffering_period period;
    period.bp_seq_parameter_set_id = 9;
    period.irap_cpb_params_present_flag = true;
    period.cpb_delay_offset = 101;
    period.dpb_delay_offset = 102;
    period.concatenation_flag = true;
    period.au_cpb_removal_delay_delta_minus1 = 103;
    period.nal_initial_cpb_removal_delay = {104, 105, 106};
    period.nal_initial_cpb_removal_offset = {107, 108, 109};
    period.nal_initial_alt_cpb_removal_delay = {110, 111, 112};
    period.nal_initial_alt_cpb_removal_offset = {113, 114, 115};
    period.vcl_initial_cpb_removal_delay = {116, 117, 118};
    period.vcl_initial_cpb_removal_offset = {119, 120, 121};
    period.vcl_initial_alt_cpb_removal_delay = {122, 123, 124};
    period.vcl_initial_alt_cpb_removal_offset = {125, 126, 127};
    period.use_alt_cpb_params_flag = true;
    period.reserved_u32 = 128;
    period.CpbCnt = 3;
    period.NalHrdBpPresentFlag = true;
    period.VclHrdBpPresentFlag = true;
    period.use_alt_cpb_params_flag_present = true;
    period.valid = true;
    return period;
}

// Over exactly these bits, the last byte filled with zeros; `read` of them are to be consumed.
bool parse(h265_nal_sei_buffering_period& period, const sps_store& store,
           const test::bit_writer& bits, std::size_t read) {
    test::rbsp input{bits.bytes()};
    const bool result = period.parse(input.reader, store);
    EXPECT_EQ(input.reader.bit_position(), read);
    return result;
}

// Over these bits and the ones that fill up a payload, clause D.2.1.
bool parse(h265_nal_sei_buffering_period& period, const sps_store& store,
           const test::bit_writer& bits) {
    test::bit_writer payload = bits;
    if (bits.size() % 8 != 0) {
        payload.trailing_bits();
    }
    return parse(period, store, payload, bits.size());
}

TEST(H265NalSeiBufferingPeriod, ReadsAMessageWithoutAnyCpb) {
    h265_nal_sei_buffering_period period;
    EXPECT_TRUE(parse(period, store_with_lengths(), start()));
    h265_nal_sei_buffering_period expected;
    expected.concatenation_flag = true;
    expected.au_cpb_removal_delay_delta_minus1 = 41;
    expected.CpbCnt = 2;
    expected.valid = true;
    EXPECT_TRUE(test::same_fields(period, expected));
}

TEST(H265NalSeiBufferingPeriod, ReadsEveryElement) {
    sps_store store = store_with_lengths();
    store[6] = store[0];
    h265_hrd_parameters& hrd = store[6].vui_parameters.hrd_parameters;
    hrd.nal_hrd_parameters_present_flag = true;
    hrd.vcl_hrd_parameters_present_flag = true;
    test::bit_writer bits;
    bits.ue(6).u<1>(1);                    // bp_seq_parameter_set_id, irap flag
    bits.u<6>(51).u<7>(99);                // cpb_delay_offset, dpb_delay_offset
    bits.u<1>(1).u<6>(62);                 // concatenation_flag, delta
    bits.u<5>(1).u<5>(2).u<5>(3).u<5>(4);  // NAL: delay, offset, their alternatives
    bits.u<5>(5).u<5>(6).u<5>(7).u<5>(8);
    bits.u<5>(11).u<5>(12).u<5>(13).u<5>(14);  // VCL
    bits.u<5>(15).u<5>(16).u<5>(17).u<5>(18);
    bits.u<1>(1);  // use_alt_cpb_params_flag
    const std::size_t size = bits.size();
    h265_nal_sei_buffering_period period;
    EXPECT_TRUE(parse(period, store, bits.trailing_bits(), size));

    h265_nal_sei_buffering_period expected;
    expected.bp_seq_parameter_set_id = 6;
    expected.irap_cpb_params_present_flag = true;
    expected.cpb_delay_offset = 51;
    expected.dpb_delay_offset = 99;
    expected.concatenation_flag = true;
    expected.au_cpb_removal_delay_delta_minus1 = 62;
    expected.nal_initial_cpb_removal_delay = {1, 5};
    expected.nal_initial_cpb_removal_offset = {2, 6};
    expected.nal_initial_alt_cpb_removal_delay = {3, 7};
    expected.nal_initial_alt_cpb_removal_offset = {4, 8};
    expected.vcl_initial_cpb_removal_delay = {11, 15};
    expected.vcl_initial_cpb_removal_offset = {12, 16};
    expected.vcl_initial_alt_cpb_removal_delay = {13, 17};
    expected.vcl_initial_alt_cpb_removal_offset = {14, 18};
    expected.use_alt_cpb_params_flag = true;
    expected.CpbCnt = 2;
    expected.NalHrdBpPresentFlag = true;
    expected.VclHrdBpPresentFlag = true;
    expected.use_alt_cpb_params_flag_present = true;
    expected.valid = true;
    EXPECT_TRUE(test::same_fields(period, expected));
}

TEST(H265NalSeiBufferingPeriod, ReadsOnlyTheGroupThatTheHrdHas) {
    const test::bit_writer bits = start().u<5>(1).u<5>(2).u<5>(3).u<5>(4);
    sps_store store = store_with_lengths();
    hrd_of(store).nal_hrd_parameters_present_flag = true;
    h265_nal_sei_buffering_period period;
    EXPECT_TRUE(parse(period, store, bits));
    EXPECT_TRUE(period.NalHrdBpPresentFlag);
    EXPECT_FALSE(period.VclHrdBpPresentFlag);
    EXPECT_EQ(period.nal_initial_cpb_removal_delay, (values{1, 3}));
    EXPECT_EQ(period.nal_initial_cpb_removal_offset, (values{2, 4}));
    EXPECT_EQ(period.nal_initial_alt_cpb_removal_delay, (values{0, 0}));
    EXPECT_EQ(period.nal_initial_alt_cpb_removal_offset, (values{0, 0}));
    EXPECT_EQ(period.vcl_initial_cpb_removal_delay, values());

    store = store_with_lengths();
    hrd_of(store).vcl_hrd_parameters_present_flag = true;
    period = {};
    EXPECT_TRUE(parse(period, store, bits));
    EXPECT_FALSE(period.NalHrdBpPresentFlag);
    EXPECT_TRUE(period.VclHrdBpPresentFlag);
    EXPECT_EQ(period.nal_initial_cpb_removal_delay, values());
    EXPECT_EQ(period.vcl_initial_cpb_removal_delay, (values{1, 3}));
    EXPECT_EQ(period.vcl_initial_cpb_removal_offset, (values{2, 4}));
    EXPECT_EQ(period.vcl_initial_alt_cpb_removal_delay, (values{0, 0}));
    EXPECT_EQ(period.vcl_initial_alt_cpb_removal_offset, (values{0, 0}));
}

TEST(H265NalSeiBufferingPeriod, KeepsWhatIsAbsent) {
    h265_nal_sei_buffering_period period = used_record();
    period.valid = false;
    EXPECT_TRUE(parse(period, store_with_lengths(), start()));
    h265_nal_sei_buffering_period expected = used_record();
    expected.bp_seq_parameter_set_id = 0;
    expected.irap_cpb_params_present_flag = false;
    expected.au_cpb_removal_delay_delta_minus1 = 41;
    expected.reserved_u32 = 0;
    expected.CpbCnt = 2;
    expected.NalHrdBpPresentFlag = false;
    expected.VclHrdBpPresentFlag = false;
    expected.use_alt_cpb_params_flag_present = false;
    EXPECT_TRUE(test::same_fields(period, expected));
}

TEST(H265NalSeiBufferingPeriod, KeepsAndFillsArraysWhenParsedAgain) {
    sps_store store = store_with_lengths();
    hrd_of(store).nal_hrd_parameters_present_flag = true;
    h265_nal_sei_buffering_period period = used_record();
    EXPECT_TRUE(parse(period, store, start().u<5>(1).u<5>(2).u<5>(3).u<5>(4)));
    EXPECT_EQ(period.nal_initial_cpb_removal_delay, (values{1, 3}));
    EXPECT_EQ(period.nal_initial_alt_cpb_removal_delay, (values{110, 111}));
    EXPECT_EQ(period.vcl_initial_cpb_removal_delay, (values{116, 117, 118}));

    hrd_of(store).cpb_cnt_minus1 = {2};
    EXPECT_TRUE(parse(period, store, start().u<5>(1).u<5>(2).u<5>(3).u<5>(4).u<5>(5).u<5>(6)));
    EXPECT_EQ(period.nal_initial_cpb_removal_delay, (values{1, 3, 5}));
    EXPECT_EQ(period.nal_initial_alt_cpb_removal_delay, (values{110, 111, 0}));
}

TEST(H265NalSeiBufferingPeriod, ReadsAlternativesOfIrapParameters) {
    sps_store store = store_with_lengths();
    hrd_of(store).cpb_cnt_minus1 = {0};
    hrd_of(store).vcl_hrd_parameters_present_flag = true;
    test::bit_writer bits;
    bits.ue(0).u<1>(1).u<6>(1).u<7>(2).u<1>(0).u<6>(3);
    bits.u<5>(4).u<5>(5).u<5>(6).u<5>(7);
    h265_nal_sei_buffering_period period;
    EXPECT_TRUE(parse(period, store, bits));
    EXPECT_EQ(period.cpb_delay_offset, 1U);
    EXPECT_EQ(period.dpb_delay_offset, 2U);
    EXPECT_FALSE(period.concatenation_flag);
    EXPECT_EQ(period.vcl_initial_alt_cpb_removal_delay, values{6});
    EXPECT_EQ(period.vcl_initial_alt_cpb_removal_offset, values{7});
}

TEST(H265NalSeiBufferingPeriod, ReadsAlternativesOfSubPictureParametersWithoutAnIrapFlag) {
    sps_store store = store_with_lengths();
    hrd_of(store).sub_pic_hrd_params_present_flag = true;
    hrd_of(store).nal_hrd_parameters_present_flag = true;
    test::bit_writer bits = start_without_irap_flag();
    bits.u<5>(1).u<5>(2).u<5>(3).u<5>(4);
    bits.u<5>(5).u<5>(6).u<5>(7).u<5>(8);
    h265_nal_sei_buffering_period period;
    EXPECT_TRUE(parse(period, store, bits));
    EXPECT_FALSE(period.irap_cpb_params_present_flag);
    EXPECT_EQ(period.cpb_delay_offset, 0U);
    EXPECT_EQ(period.nal_initial_alt_cpb_removal_delay, (values{3, 7}));
    EXPECT_EQ(period.nal_initial_alt_cpb_removal_offset, (values{4, 8}));
}

TEST(H265NalSeiBufferingPeriod, GoesByAnEarlierIrapFlagWithSubPictureParameters) {
    sps_store store = store_with_lengths();
    hrd_of(store).sub_pic_hrd_params_present_flag = true;
    h265_nal_sei_buffering_period period;
    period.irap_cpb_params_present_flag = true;
    test::bit_writer bits;
    bits.ue(0).u<6>(21).u<7>(22).u<1>(1).u<6>(23);
    EXPECT_TRUE(parse(period, store, bits));
    EXPECT_TRUE(period.irap_cpb_params_present_flag);
    EXPECT_EQ(period.cpb_delay_offset, 21U);
    EXPECT_EQ(period.dpb_delay_offset, 22U);
    EXPECT_EQ(period.au_cpb_removal_delay_delta_minus1, 23U);
}

TEST(H265NalSeiBufferingPeriod, ReadsEveryLengthUpTo32Bits) {
    for (unsigned int length = 1; length <= 32; ++length) {
        sps_store store = store_with_lengths();
        h265_hrd_parameters& hrd = hrd_of(store);
        const auto length_minus1 = static_cast<unsigned char>(length - 1);
        hrd.initial_cpb_removal_delay_length_minus1 = length_minus1;
        hrd.au_cpb_removal_delay_length_minus1 = length_minus1;
        hrd.dpb_output_delay_length_minus1 = length_minus1;
        hrd.cpb_cnt_minus1 = {0};
        hrd.nal_hrd_parameters_present_flag = true;
        hrd.vcl_hrd_parameters_present_flag = true;
        const unsigned int ones = 0xFFFFFFFF >> (32 - length);
        const unsigned int mixed = 0x9A5C63E1 >> (32 - length);

        test::bit_writer bits;
        bits.ue(0).u<1>(1).u(length, mixed).u(length, ones).u<1>(1).u(length, mixed);
        bits.u(length, ones).u(length, 0).u(length, mixed).u(length, 1);
        bits.u(length, 0).u(length, mixed).u(length, 1).u(length, ones);
        h265_nal_sei_buffering_period period;
        EXPECT_TRUE(parse(period, store, bits));
        EXPECT_EQ(period.cpb_delay_offset, mixed);
        EXPECT_EQ(period.dpb_delay_offset, ones);
        EXPECT_EQ(period.au_cpb_removal_delay_delta_minus1, mixed);
        EXPECT_EQ(period.nal_initial_cpb_removal_delay, values{ones});
        EXPECT_EQ(period.nal_initial_cpb_removal_offset, values{0});
        EXPECT_EQ(period.nal_initial_alt_cpb_removal_delay, values{mixed});
        EXPECT_EQ(period.nal_initial_alt_cpb_removal_offset, values{1});
        EXPECT_EQ(period.vcl_initial_cpb_removal_delay, values{0});
        EXPECT_EQ(period.vcl_initial_cpb_removal_offset, values{mixed});
        EXPECT_EQ(period.vcl_initial_alt_cpb_removal_delay, values{1});
        EXPECT_EQ(period.vcl_initial_alt_cpb_removal_offset, values{ones});
    }
}

TEST(H265NalSeiBufferingPeriod, CountsTheCpbsOfSubLayer0) {
    sps_store store = store_with_lengths();
    hrd_of(store).cpb_cnt_minus1 = {0, 4, 200};
    hrd_of(store).nal_hrd_parameters_present_flag = true;
    h265_nal_sei_buffering_period period;
    EXPECT_TRUE(parse(period, store, start().u<5>(1).u<5>(2)));
    EXPECT_EQ(period.CpbCnt, 1U);
    EXPECT_EQ(period.nal_initial_cpb_removal_delay, values{1});
}

TEST(H265NalSeiBufferingPeriod, TakesUpTo128Cpbs) {
    sps_store store = store_with_lengths();
    hrd_of(store).cpb_cnt_minus1 = {127};
    hrd_of(store).vcl_hrd_parameters_present_flag = true;
    test::bit_writer bits = start();
    for (unsigned int i = 0; i < 128; ++i) {
        bits.u<5>(i % 32).u<5>(31 - i % 32);
    }
    h265_nal_sei_buffering_period period;
    EXPECT_TRUE(parse(period, store, bits));
    EXPECT_EQ(period.CpbCnt, 128U);
    ASSERT_EQ(period.vcl_initial_cpb_removal_delay.size(), 128U);
    EXPECT_EQ(period.vcl_initial_cpb_removal_delay[127], 31U);
    EXPECT_EQ(period.vcl_initial_cpb_removal_offset[127], 0U);
}

TEST(H265NalSeiBufferingPeriod, RejectsMoreCpbsWithoutTouchingValid) {
    for (const unsigned int cpb_cnt_minus1 : {128U, 0xFFFFFFFEU}) {
        for (const bool valid_before : {false, true}) {
            sps_store store = store_with_lengths();
            hrd_of(store).cpb_cnt_minus1 = {cpb_cnt_minus1};
            hrd_of(store).nal_hrd_parameters_present_flag = true;
            h265_nal_sei_buffering_period period = used_record();
            period.valid = valid_before;
            EXPECT_FALSE(parse(period, store, start()));
            h265_nal_sei_buffering_period expected = used_record();
            expected.bp_seq_parameter_set_id = 0;
            expected.irap_cpb_params_present_flag = false;
            expected.au_cpb_removal_delay_delta_minus1 = 41;
            expected.reserved_u32 = 0;
            expected.CpbCnt = cpb_cnt_minus1 + 1;
            expected.valid = valid_before;
            EXPECT_TRUE(test::same_fields(period, expected)) << cpb_cnt_minus1;
        }
    }
}

TEST(H265NalSeiBufferingPeriod, FailsAfterTheDeltaWithoutHrdParameters) {
    for (const bool valid_before : {false, true}) {
        sps_store store = store_with_lengths();
        hrd_of(store).cpb_cnt_minus1 = {};
        h265_nal_sei_buffering_period period = used_record();
        period.valid = valid_before;
        EXPECT_FALSE(parse(period, store, start()));
        h265_nal_sei_buffering_period expected = used_record();
        expected.bp_seq_parameter_set_id = 0;
        expected.irap_cpb_params_present_flag = false;
        expected.au_cpb_removal_delay_delta_minus1 = 41;
        expected.reserved_u32 = 0;
        expected.valid = valid_before;
        EXPECT_TRUE(test::same_fields(period, expected));
    }
}

// The lengths of a fresh HRD record are 1 bit.
TEST(H265NalSeiBufferingPeriod, FailsWithAnSpsThatWasNeverRead) {
    sps_store store;
    store[0];
    h265_nal_sei_buffering_period period;
    EXPECT_FALSE(parse(period, store, test::bit_writer().ue(0).u<1>(0).u<1>(1).u<1>(1)));
    EXPECT_EQ(period.au_cpb_removal_delay_delta_minus1, 1U);
}

TEST(H265NalSeiBufferingPeriod, FailsAndClearsValidWithoutTheSps) {
    const sps_store store = store_with_lengths();
    h265_nal_sei_buffering_period period = used_record();
    EXPECT_NO_THROW(EXPECT_FALSE(parse(period, store, test::bit_writer().ue(1).u<7>(0x7F), 3)));
    h265_nal_sei_buffering_period expected = used_record();
    expected.bp_seq_parameter_set_id = 1;
    expected.valid = false;
    EXPECT_TRUE(test::same_fields(period, expected));
    EXPECT_EQ(store.size(), 1U);
}

TEST(H265NalSeiBufferingPeriod, GoesByTheIdentifierAndNotByTheActiveOne) {
    sps_store store = store_with_lengths();
    store[2];
    store.active_id = 2;
    h265_nal_sei_buffering_period period;
    EXPECT_TRUE(parse(period, store, start()));
    EXPECT_EQ(store.active_id, 2U);
}

TEST(H265NalSeiBufferingPeriod, KnowsThatThePayloadEndsAfterTheLastEntry) {
    sps_store store = store_with_lengths();
    hrd_of(store).vcl_hrd_parameters_present_flag = true;
    hrd_of(store).initial_cpb_removal_delay_length_minus1 = 9;
    hrd_of(store).au_cpb_removal_delay_length_minus1 = 4;
    // 8 bits and four times 10, to the end of a byte.
    test::bit_writer bits;
    bits.ue(0).u<1>(0).u<1>(0).u<5>(31);
    bits.u<10>(1).u<10>(2).u<10>(3).u<10>(1023);
    ASSERT_EQ(bits.size() % 8, 0U);
    h265_nal_sei_buffering_period period = used_record();
    EXPECT_TRUE(parse(period, store, bits));
    EXPECT_FALSE(period.use_alt_cpb_params_flag_present);
    EXPECT_TRUE(period.use_alt_cpb_params_flag);
}

TEST(H265NalSeiBufferingPeriod, ReadsUseAltCpbParamsFlagBeforeTheBitsThatFillAPayload) {
    for (const unsigned int flag : {0U, 1U}) {
        // Nine bits, the flag, then 1 and zeros.
        test::bit_writer bits = start();
        bits.u<1>(flag);
        h265_nal_sei_buffering_period period;
        period.use_alt_cpb_params_flag = flag == 0;
        EXPECT_TRUE(parse(period, store_with_lengths(), bits));
        EXPECT_TRUE(period.use_alt_cpb_params_flag_present);
        EXPECT_EQ(period.use_alt_cpb_params_flag, flag == 1);
    }
}

TEST(H265NalSeiBufferingPeriod, ReadsZerosBehindTheEnd) {
    sps_store store = store_with_lengths();
    hrd_of(store).nal_hrd_parameters_present_flag = true;
    h265_nal_sei_buffering_period period;
    test::rbsp input{0b1'0'1'11111};
    EXPECT_TRUE(period.parse(input.reader, store));
    EXPECT_EQ(period.au_cpb_removal_delay_delta_minus1, 0b111110U);
    EXPECT_EQ(period.nal_initial_cpb_removal_delay, (values{0, 0}));
    EXPECT_FALSE(period.use_alt_cpb_params_flag_present);
    EXPECT_TRUE(period.valid);
}

}  // namespace
}  // namespace kovran
