// What the messages that nest others have in common.
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/sei/h265_nal_sei_alternative_transfer_characteristics.h>
#include <kovran/h265/sei/h265_nal_sei_bsp_nesting.h>
#include <kovran/h265/sei/h265_nal_sei_content_light_level_info.h>
#include <kovran/h265/sei/h265_nal_sei_mcts_extraction_info_nesting.h>
#include <kovran/h265/sei/h265_nal_sei_message.h>
#include <kovran/h265/sei/h265_nal_sei_regional_nesting.h>
#include <kovran/h265/sei/h265_nal_sei_scalable_nesting.h>

#include <cstddef>
#include <variant>
#include <vector>

#include <gtest/gtest.h>

#include "support/rbsp.h"
#include "support/sei_payload.h"
#include "support/sei_record_parsing.h"

namespace kovran {
namespace {

// Of each nest: a transfer characteristic and the light levels, behind a head; what reading that
// payload tells; and a head for one message.
template <class Nest>
struct nest_sample;

template <>
struct nest_sample<h265_nal_sei_bsp_nesting> {
    static constexpr char bits[] = "00101 010 011 010 0 0  x93 x01 x12  x90 x04 x03xe8 x01x90";
    static constexpr std::size_t element_count = 13;
    static constexpr std::size_t fewest_bytes = 7;  // up to the size of the last message
    static constexpr char fault_without_last_byte[] =
        "sei_message[1].payloadSize at bit 72 is 4; allowed: 0 to 3";
    static constexpr char head_of_one[] = "1 1 1 1 0000";
};

template <>
struct nest_sample<h265_nal_sei_mcts_extraction_info_nesting> {
    static constexpr char bits[] = "0 010 1 011 010 0 0 0 0 0  x93 x01 x12  x90 x04 x03xe8 x01x90";
    static constexpr std::size_t element_count = 17;
    static constexpr std::size_t fewest_bytes = 7;
    static constexpr char fault_without_last_byte[] =
        "sei_message[1].payloadSize at bit 72 is 4; allowed: 0 to 3";
    static constexpr char head_of_one[] = "1 1 000000";
};

template <>
struct nest_sample<h265_nal_sei_regional_nesting> {
    static constexpr char bits[] =
        "x80x05 x02 x03 x90x00 x90x01 x90x02 x90x03 x04 x00x07 x00x08 x00x09 x00x0a x01 "
        "x02 x01 x00  x93 x01 x12  x01 x01  x90 x04 x03xe8 x01x90";
    static constexpr std::size_t element_count = 25;
    static constexpr std::size_t fewest_bytes = 32;
    static constexpr char fault_without_last_byte[] =
        "sei_message[1].payloadSize at bit 272 is 4; allowed: 0 to 3";
    static constexpr char head_of_one[] = "x00x00 x00 x00 x00";
};

// It does not say how many messages it has.
template <>
struct nest_sample<h265_nal_sei_scalable_nesting> {
    static constexpr char bits[] = "0 0 1 00000  x93 x01 x12  x90 x04 x03xe8 x01x90";
    static constexpr std::size_t element_count = 15;
    static constexpr std::size_t fewest_bytes = 1;  // its head
    static constexpr char fault_without_last_byte[] =
        "sei_message[1].payloadSize at bit 64 is 4; allowed: 0 to 3";
    static constexpr char head_of_one[] = "0 0 1 00000";
};

template <class Nest>
// NOLINTNEXTLINE(readability-identifier-naming): the name of a suite
class NestedMessages : public testing::Test {};

using nests = testing::Types<h265_nal_sei_bsp_nesting, h265_nal_sei_mcts_extraction_info_nesting,
                             h265_nal_sei_regional_nesting, h265_nal_sei_scalable_nesting>;
TYPED_TEST_SUITE(NestedMessages, nests, );

const std::vector<unsigned char>* bytes_kept(const h265_nal_sei_message& message) {
    const auto* const bytes = std::get_if<h265_nal_sei_reserved_message>(&message.payload);
    return bytes != nullptr ? &bytes->reserved_sei_message_payload_byte : nullptr;
}

TYPED_TEST(NestedMessages, AreReadByThemselves) {
    const test::sei_stores stores;
    const auto parsed =
        test::parsed_alone<TypeParam>(nest_sample<TypeParam>::bits, stores.vps, stores.sps);
    EXPECT_EQ(parsed.element_count, nest_sample<TypeParam>::element_count);
    for (const TypeParam* const nest : {&parsed.record, &parsed.untraced}) {
        ASSERT_EQ(nest->sei_message.size(), 2U);
        EXPECT_TRUE(std::holds_alternative<h265_nal_sei_alternative_transfer_characteristics>(
            nest->sei_message[0].payload));
        EXPECT_TRUE(std::holds_alternative<h265_nal_sei_content_light_level_info>(
            nest->sei_message[1].payload));
    }
}

TYPED_TEST(NestedMessages, AreGoneWhenTheirNestCannotBeRead) {
    const test::sei_stores stores;
    TypeParam nest =
        test::parsed_alone<TypeParam>(nest_sample<TypeParam>::bits, stores.vps, stores.sps).record;
    test::rbsp nothing;
    EXPECT_FALSE(nest.parse_standard(nothing.reader, stores.vps, stores.sps));
    EXPECT_TRUE(nest.sei_message.empty());
}

TYPED_TEST(NestedMessages, HaveTheirTypesAndSizes) {
    const std::vector<unsigned char> whole = test::bytes_of(nest_sample<TypeParam>::bits);
    for (std::size_t size = 0; size < whole.size(); ++size) {
        const std::vector<unsigned char> first(whole.data(), whole.data() + size);
        EXPECT_EQ(test::read_payload(TypeParam::payload_type, first).read,
                  size >= nest_sample<TypeParam>::fewest_bytes)
            << size;
    }
}

TYPED_TEST(NestedMessages, KeepTheBytesOfTheLastOneWhenItIsCutOff) {
    std::vector<unsigned char> payload = test::bytes_of(nest_sample<TypeParam>::bits);
    payload.pop_back();
    const test::sei_reading reading = test::read_payload(TypeParam::payload_type, payload);
    EXPECT_TRUE(reading.read);
    EXPECT_EQ(to_string(reading.fault), nest_sample<TypeParam>::fault_without_last_byte);
    const auto* const nest = std::get_if<TypeParam>(&reading.message.payload);
    ASSERT_NE(nest, nullptr);
    EXPECT_TRUE(nest->valid);
    ASSERT_EQ(nest->sei_message.size(), 2U);
    EXPECT_TRUE(nest->sei_message[0].valid);
    EXPECT_FALSE(nest->sei_message[1].valid);
    ASSERT_NE(bytes_kept(nest->sei_message[1]), nullptr);
    EXPECT_EQ(*bytes_kept(nest->sei_message[1]), (std::vector<unsigned char>{3, 0xE8, 1}));
}

// A message has two bytes at the least.
TYPED_TEST(NestedMessages, HaveAByteOfExtensionDataBehindThem) {
    std::vector<unsigned char> payload = test::bytes_of(nest_sample<TypeParam>::bits);
    payload.push_back(0b1011'0000);
    const test::sei_reading reading = test::read_payload(TypeParam::payload_type, payload);
    EXPECT_TRUE(reading.read);
    EXPECT_EQ(reading.message.reserved_payload_extension_data,
              (std::vector<bool>{true, false, true}));
}

// A transfer characteristic within so many nests.
template <class Nest>
std::vector<unsigned char> message_within(unsigned int depth) {
    const std::vector<unsigned char> head = test::bytes_of(nest_sample<Nest>::head_of_one);
    std::vector<unsigned char> bytes = test::message_of(147, {18});
    for (unsigned int i = 0; i < depth; ++i) {
        bytes.insert(bytes.begin(), head.begin(), head.end());
        bytes = test::message_of(Nest::payload_type, bytes);
    }
    return bytes;
}

template <class Nest>
const h265_nal_sei_message& innermost_of(const h265_nal_sei_message& message) {
    const auto* const nest = std::get_if<Nest>(&message.payload);
    return nest != nullptr && nest->sei_message.size() == 1
               ? innermost_of<Nest>(nest->sei_message.front())
               : message;
}

// Behind five nests the message is kept as bytes, behind six the sixth nest is.
TYPED_TEST(NestedMessages, AreReadWithinFourNests) {
    static_assert(h265_nal_sei_message::most_nestings == 4);
    const test::sei_stores stores;
    for (const unsigned int depth : {1U, 4U, 5U, 6U}) {
        const test::exact_bytes unit(message_within<TypeParam>(depth));
        h265_nal_sei_reader reader(unit.begin(), unit.end(), PREFIX_SEI_NUT);
        ASSERT_TRUE(reader.next_message());
        h265_nal_sei_message message;
        EXPECT_TRUE(message.parse_standard(reader, stores.vps, stores.sps));
        const h265_nal_sei_message& innermost = innermost_of<TypeParam>(message);
        EXPECT_EQ(innermost.valid, depth <= 4) << depth;
        EXPECT_EQ(bytes_kept(innermost) == nullptr, depth <= 4) << depth;
        EXPECT_EQ(innermost.payload_type, depth == 6 ? TypeParam::payload_type : 147) << depth;
    }
}

}  // namespace
}  // namespace kovran
