#include <kovran/h265/sei/h265_nal_sei_bsp_initial_arrival_time.h>

#include <kovran/h265/h265_hrd_parameters.h>
#include <kovran/h265/h265_trace.h>

#include <cstddef>
#include <vector>

#include <gtest/gtest.h>

#include "support/allocation_failure.h"
#include "support/rbsp.h"
#include "support/sei_payload.h"

namespace kovran {
namespace {

// With delays of 5 bits.
h265_hrd_parameters bsp_arrival_hrd(bool nal, bool vcl) {
    h265_hrd_parameters hrd;
    hrd.nal_hrd_parameters_present_flag = nal;
    hrd.vcl_hrd_parameters_present_flag = vcl;
    hrd.initial_cpb_removal_delay_length_minus1 = 4;
    return hrd;
}

TEST(H265NalSeiBspInitialArrivalTime, HasDelaysOfBothKinds) {
    test::rbsp input(test::bytes_of("10001 00010 11111 00000"));
    h265_nal_sei_bsp_initial_arrival_time arrival;
    h265_trace trace;
    h265_fault fault;
    EXPECT_TRUE(arrival.parse_standard(input.reader, bsp_arrival_hrd(/*nal=*/true, /*vcl=*/true), 2,
                                       trace, &fault));
    EXPECT_TRUE(arrival.valid);
    EXPECT_EQ(arrival.nal_initial_arrival_delay, (std::vector<unsigned int>{17, 2}));
    EXPECT_EQ(arrival.vcl_initial_arrival_delay, (std::vector<unsigned int>{31, 0}));
    EXPECT_EQ(fault.kind, h265_fault_kind::none);
    ASSERT_EQ(trace.elements.size(), 4U);
    EXPECT_EQ(path_of(trace, trace.elements[1]), "nal_initial_arrival_delay[1]");
    EXPECT_EQ(trace.elements[1].first_bit, 5U);
    EXPECT_EQ(trace.elements[1].width, 5U);
    EXPECT_EQ(trace.elements[1].value, 2);
    EXPECT_EQ(path_of(trace, trace.elements[2]), "vcl_initial_arrival_delay[0]");
}

TEST(H265NalSeiBspInitialArrivalTime, HasDelaysOfOneKindInAUsedRecord) {
    const auto payload = test::bytes_of("10001 00010 11111 00000");
    h265_nal_sei_bsp_initial_arrival_time arrival;
    test::rbsp both(payload);
    EXPECT_TRUE(
        arrival.parse_standard(both.reader, bsp_arrival_hrd(/*nal=*/true, /*vcl=*/true), 2));

    test::rbsp nal(payload);
    EXPECT_TRUE(
        arrival.parse_standard(nal.reader, bsp_arrival_hrd(/*nal=*/true, /*vcl=*/false), 3));
    EXPECT_EQ(arrival.nal_initial_arrival_delay, (std::vector<unsigned int>{17, 2, 31}));
    EXPECT_TRUE(arrival.vcl_initial_arrival_delay.empty());

    test::rbsp vcl(payload);
    EXPECT_TRUE(
        arrival.parse_standard(vcl.reader, bsp_arrival_hrd(/*nal=*/false, /*vcl=*/true), 1));
    EXPECT_TRUE(arrival.nal_initial_arrival_delay.empty());
    EXPECT_EQ(arrival.vcl_initial_arrival_delay, std::vector<unsigned int>{17});

    test::rbsp none;
    EXPECT_TRUE(
        arrival.parse_standard(none.reader, bsp_arrival_hrd(/*nal=*/false, /*vcl=*/false), 1));
    EXPECT_TRUE(arrival.vcl_initial_arrival_delay.empty());
}

TEST(H265NalSeiBspInitialArrivalTime, HasDelaysOf32Bits) {
    h265_hrd_parameters hrd = bsp_arrival_hrd(/*nal=*/true, /*vcl=*/false);
    hrd.initial_cpb_removal_delay_length_minus1 = 31;
    test::rbsp input(test::bytes_of("xf0x00x00x01"));
    h265_nal_sei_bsp_initial_arrival_time arrival;
    EXPECT_TRUE(arrival.parse_standard(input.reader, hrd, 1));
    EXPECT_EQ(arrival.nal_initial_arrival_delay, std::vector<unsigned int>{0xF0000001});
}

// 16 bits hold three delays of 5.
TEST(H265NalSeiBspInitialArrivalTime, HasNoMoreDelaysThanTheDataHolds) {
    const auto payload = test::bytes_of("10001 00010 11111 0");
    h265_nal_sei_bsp_initial_arrival_time arrival;
    h265_fault fault;
    test::rbsp nal(payload);
    EXPECT_FALSE(arrival.parse_standard(nal.reader, bsp_arrival_hrd(/*nal=*/true, /*vcl=*/false), 4,
                                        &fault));
    EXPECT_FALSE(arrival.valid);
    EXPECT_EQ(to_string(fault), "BspSchedCnt at bit 0 is 4; allowed: 0 to 3");

    test::rbsp vcl(payload);
    EXPECT_FALSE(
        arrival.parse_standard(vcl.reader, bsp_arrival_hrd(/*nal=*/true, /*vcl=*/true), 2, &fault));
    EXPECT_FALSE(arrival.valid);
    EXPECT_EQ(to_string(fault), "BspSchedCnt at bit 10 is 2; allowed: 0 to 1");
}

TEST(H265NalSeiBspInitialArrivalTime, EndsWhereMemoryDoes) {
    test::rbsp input(test::bytes_of("10001 00010 11111 00000"));
    const h265_hrd_parameters hrd = bsp_arrival_hrd(/*nal=*/true, /*vcl=*/true);
    for (std::size_t n = 1; n <= 2; ++n) {
        h265_nal_sei_bsp_initial_arrival_time arrival;
        h2645_common_bitreader reader = input.reader;
        const test::allocation_failure failure(n);
        EXPECT_FALSE(arrival.parse_standard(reader, hrd, 2));
        EXPECT_TRUE(failure.happened());
        EXPECT_FALSE(arrival.valid);
    }
}

TEST(H265NalSeiBspInitialArrivalTime, IsKeptAsBytesInAMessage) {
    EXPECT_EQ(test::refusal_of(163, "x80"), "no VPS is active");
    test::sei_stores stores;
    stores.sps[2].sps_video_parameter_set_id = 7;
    stores.sps.active_id = 2;
    EXPECT_EQ(test::refusal_of(163, "x80", stores),
              "VPS 7 is missing, needed by last_payload_size_byte at bit 8");
}

}  // namespace
}  // namespace kovran
