#include <kovran/h265/sei/h265_nal_sei_message.h>

#include <kovran/h265/h265_fault.h>

#include <variant>
#include <vector>

#include <gtest/gtest.h>

#include "support/rbsp.h"
#include "support/sei_payload.h"

namespace kovran {
namespace {

const std::vector<unsigned char>* sei_message_bytes(const h265_nal_sei_message& message) {
    const auto* const bytes = std::get_if<h265_nal_sei_reserved_message>(&message.payload);
    return bytes != nullptr ? &bytes->reserved_sei_message_payload_byte : nullptr;
}

TEST(H265NalSeiMessage, IsKeptAsBytesWhenItsTypeHasNoRecord) {
    for (const unsigned int type : {7U, 255U, 256U, 1000U}) {
        const test::sei_reading reading = test::read_payload(type, {1, 2, 0});
        EXPECT_TRUE(reading.read);
        EXPECT_EQ(reading.fault.kind, h265_fault_kind::none);
        ASSERT_NE(sei_message_bytes(reading.message), nullptr);
        EXPECT_EQ(*sei_message_bytes(reading.message), (std::vector<unsigned char>{1, 2, 0}));
        EXPECT_EQ(reading.elements, "reserved_sei_message_payload_byte[0..2] 010200\n");
    }
}

TEST(H265NalSeiMessage, MayHaveNoBytes) {
    const test::sei_reading unknown = test::read_payload(7, {});
    EXPECT_TRUE(unknown.read);
    EXPECT_EQ(unknown.elements, "");
    EXPECT_FALSE(test::read_payload(147, {}).read);
}

TEST(H265NalSeiMessage, IsKeptAsBytesWhenItIsCutOff) {
    const test::exact_bytes unit({6, 5, 0xD0});
    h265_nal_sei_reader reader(unit.begin(), unit.end(), PREFIX_SEI_NUT);
    ASSERT_TRUE(reader.next_message());
    const test::sei_stores stores;
    h265_nal_sei_message message;
    h265_fault fault;
    EXPECT_FALSE(message.parse_standard(reader, stores.vps, stores.sps, &fault));
    EXPECT_FALSE(message.valid);
    EXPECT_EQ(to_string(fault), "payloadSize at bit 16 is 5; allowed: 0 to 1");
    EXPECT_EQ(message.payload_type, 6U);
    EXPECT_EQ(message.payload_size, 5U);
    ASSERT_NE(sei_message_bytes(message), nullptr);
    EXPECT_EQ(*sei_message_bytes(message), std::vector<unsigned char>{0xD0});
}

TEST(H265NalSeiMessage, OfATypeWithoutRecordIsNotValidWhenItIsCutOff) {
    const test::exact_bytes unit({7, 2, 0xD0});
    h265_nal_sei_reader reader(unit.begin(), unit.end(), PREFIX_SEI_NUT);
    ASSERT_TRUE(reader.next_message());
    const test::sei_stores stores;
    h265_nal_sei_message message;
    EXPECT_FALSE(message.parse_standard(reader, stores.vps, stores.sps));
    EXPECT_FALSE(message.valid);
    ASSERT_NE(sei_message_bytes(message), nullptr);
    EXPECT_EQ(*sei_message_bytes(message), std::vector<unsigned char>{0xD0});
}

TEST(H265NalSeiMessage, HasANameWhenItsTypeHasARecord) {
    EXPECT_STREQ(h265_nal_sei_payload_name(0), "buffering_period");
    EXPECT_STREQ(h265_nal_sei_payload_name(6), "recovery_point");
    EXPECT_STREQ(h265_nal_sei_payload_name(212), "phase_indication");
    for (const unsigned int type : {7U, 153U, 213U, 255U, 256U, 0xFFFFFFFFU}) {
        EXPECT_STREQ(h265_nal_sei_payload_name(type), "") << type;
    }
}

TEST(H265NalSeiMessage, IsOfAPrefixOrASuffixUnit) {
    for (const unsigned int type : {3U, 4U, 5U, 17U, 22U, 146U}) {
        EXPECT_TRUE(h265_nal_sei_payload_is_in(type, PREFIX_SEI_NUT)) << type;
        EXPECT_TRUE(h265_nal_sei_payload_is_in(type, SUFFIX_SEI_NUT)) << type;
    }
    for (const unsigned int type : {0U, 1U, 6U, 16U, 133U, 137U, 212U}) {
        EXPECT_TRUE(h265_nal_sei_payload_is_in(type, PREFIX_SEI_NUT)) << type;
        EXPECT_FALSE(h265_nal_sei_payload_is_in(type, SUFFIX_SEI_NUT)) << type;
    }
    EXPECT_FALSE(h265_nal_sei_payload_is_in(132, PREFIX_SEI_NUT));
    EXPECT_TRUE(h265_nal_sei_payload_is_in(132, SUFFIX_SEI_NUT));
    EXPECT_TRUE(h265_nal_sei_payload_is_in(7, PREFIX_SEI_NUT));
    EXPECT_TRUE(h265_nal_sei_payload_is_in(7, SUFFIX_SEI_NUT));
}

TEST(H265NalSeiMessage, OfATypeWithoutRecordNeedsMemory) {
    test::expect_payload(7, "x01x02", "reserved_sei_message_payload_byte[0..1] 0102\n", {},
                         test::payload_end::takes_all);
}

}  // namespace
}  // namespace kovran
