#include <kovran/h265/h265_nal_sei_reader.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <initializer_list>
#include <vector>

#include "support/rbsp.h"

namespace kovran {
namespace {

using bytes = std::vector<unsigned char>;

constexpr unsigned int cut_off = 0xFFFFFFFF;

// Bytes and a reader of the messages in them.
struct sei {
    explicit sei(const bytes& data, h265_nal_unit_type type = PREFIX_SEI_NUT)
        : buffer(data), reader(buffer.begin(), buffer.end(), type) {}
    sei(std::initializer_list<unsigned char> data) : sei(bytes(data)) {}

    bytes payload() const { return {reader.payload_begin, reader.payload_end}; }
    std::size_t message_offset() const { return offset(reader.message_begin); }
    std::size_t cursor_offset() const { return offset(reader.cursor); }
    std::size_t offset(const unsigned char* place) const {
        return static_cast<std::size_t>(place - buffer.begin());
    }

    test::exact_bytes buffer;
    h265_nal_sei_reader reader;
};

void expect_no_message(const h265_nal_sei_reader& reader) {
    EXPECT_EQ(reader.message_begin, nullptr);
    EXPECT_EQ(reader.payload_begin, nullptr);
    EXPECT_EQ(reader.payload_end, nullptr);
    EXPECT_EQ(reader.payload_type, 0x7FFFFFFFU);
    EXPECT_EQ(reader.payload_size, 0U);
    EXPECT_FALSE(reader.message_valid);
    EXPECT_FALSE(reader.truncated);
}

TEST(H265NalSeiReader, IsEmptyAtFirst) {
    h265_nal_sei_reader reader;
    EXPECT_EQ(reader.cursor, nullptr);
    EXPECT_EQ(reader.end, nullptr);
    EXPECT_EQ(reader.nal_unit_type, 0U);
    expect_no_message(reader);
    EXPECT_FALSE(reader.next_message());
    expect_no_message(reader);
}

TEST(H265NalSeiReader, TakesItsRangeFromTheConstructor) {
    const sei input(bytes{0x01, 0x00, 0x80}, SUFFIX_SEI_NUT);
    EXPECT_EQ(input.reader.cursor, input.buffer.begin());
    EXPECT_EQ(input.reader.end, input.buffer.end());
    EXPECT_EQ(input.reader.nal_unit_type, SUFFIX_SEI_NUT);
    expect_no_message(input.reader);
}

TEST(H265NalSeiReader, StartsOverWithOtherBytes) {
    sei input{0x05, 0x10, 0x01};
    ASSERT_TRUE(input.reader.next_message());
    ASSERT_TRUE(input.reader.truncated);

    const test::exact_bytes other{0x07, 0x01, 0xAA, 0x80};
    input.reader.set_ptr(other.begin(), other.end(), SUFFIX_SEI_NUT);
    EXPECT_EQ(input.reader.cursor, other.begin());
    EXPECT_EQ(input.reader.end, other.end());
    EXPECT_EQ(input.reader.nal_unit_type, SUFFIX_SEI_NUT);
    expect_no_message(input.reader);

    ASSERT_TRUE(input.reader.next_message());
    EXPECT_EQ(input.reader.payload_type, 7U);
    EXPECT_EQ(input.payload(), bytes{0xAA});
}

TEST(H265NalSeiReader, TakesNullForNoData) {
    h265_nal_sei_reader reader(nullptr, nullptr, PREFIX_SEI_NUT);
    EXPECT_FALSE(reader.next_message());
    expect_no_message(reader);
}

TEST(H265NalSeiReader, TakesAReversedRangeForNoData) {
    unsigned char data[] = {0x01, 0x00, 0x01, 0x00};
    h265_nal_sei_reader reader(data + 4, data, PREFIX_SEI_NUT);
    EXPECT_FALSE(reader.next_message());
    expect_no_message(reader);
}

TEST(H265NalSeiReader, ReadsAMessageAndTheTrailingBits) {
    sei input{0x01, 0x02, 0xAA, 0xBB, 0x80};
    ASSERT_TRUE(input.reader.next_message());
    EXPECT_TRUE(input.reader.message_valid);
    EXPECT_FALSE(input.reader.truncated);
    EXPECT_EQ(input.reader.payload_type, 1U);
    EXPECT_EQ(input.reader.payload_size, 2U);
    EXPECT_EQ(input.message_offset(), 0U);
    EXPECT_EQ(input.offset(input.reader.payload_begin), 2U);
    EXPECT_EQ(input.payload(), (bytes{0xAA, 0xBB}));
    EXPECT_EQ(input.reader.cursor, input.reader.end);

    EXPECT_FALSE(input.reader.next_message());
    EXPECT_FALSE(input.reader.message_valid);
}

TEST(H265NalSeiReader, KeepsTheLastMessageWhenThereIsNoOther) {
    sei input{0x01, 0x02, 0xAA, 0xBB, 0x80};
    ASSERT_TRUE(input.reader.next_message());
    ASSERT_FALSE(input.reader.next_message());
    EXPECT_EQ(input.reader.payload_type, 1U);
    EXPECT_EQ(input.reader.payload_size, 2U);
    EXPECT_EQ(input.message_offset(), 0U);
    EXPECT_EQ(input.payload(), (bytes{0xAA, 0xBB}));
}

TEST(H265NalSeiReader, ReadsOneMessageAfterTheOther) {
    sei input{0x81, 0x01, 0x11, 0x00, 0x00, 0xFF, 0x01, 0x02, 0x21, 0x22, 0x80};
    ASSERT_TRUE(input.reader.next_message());
    EXPECT_EQ(input.reader.payload_type, 129U);
    EXPECT_EQ(input.payload(), bytes{0x11});
    EXPECT_EQ(input.cursor_offset(), 3U);

    ASSERT_TRUE(input.reader.next_message());
    EXPECT_EQ(input.message_offset(), 3U);
    EXPECT_EQ(input.reader.payload_type, 0U);
    EXPECT_EQ(input.reader.payload_size, 0U);
    EXPECT_EQ(input.payload(), bytes{});
    EXPECT_EQ(input.cursor_offset(), 5U);

    ASSERT_TRUE(input.reader.next_message());
    EXPECT_EQ(input.message_offset(), 5U);
    EXPECT_EQ(input.reader.payload_type, 256U);
    EXPECT_EQ(input.payload(), (bytes{0x21, 0x22}));
    EXPECT_EQ(input.reader.cursor, input.reader.end);

    EXPECT_FALSE(input.reader.next_message());
}

TEST(H265NalSeiReader, AddsTheBytesOfALongType) {
    sei input{0xFF, 0x05, 0x01, 0x00};
    ASSERT_TRUE(input.reader.next_message());
    EXPECT_EQ(input.reader.payload_type, 260U);
    EXPECT_EQ(input.reader.payload_size, 1U);
    EXPECT_EQ(input.payload(), bytes{0x00});
    EXPECT_FALSE(input.reader.truncated);
    EXPECT_FALSE(input.reader.next_message());
}

TEST(H265NalSeiReader, AddsTheBytesOfALongSize) {
    bytes data = {0x05, 0xFF, 0x2D};
    data.resize(data.size() + 300, 0x77);
    data.push_back(0x80);
    sei input(data);
    ASSERT_TRUE(input.reader.next_message());
    EXPECT_EQ(input.reader.payload_size, 300U);
    EXPECT_EQ(input.payload(), bytes(300, 0x77));
    EXPECT_FALSE(input.reader.next_message());
}

TEST(H265NalSeiReader, ClipsATruncatedPayload) {
    sei input{0x05, 0x10, 0x01, 0x02};
    ASSERT_TRUE(input.reader.next_message());
    EXPECT_TRUE(input.reader.message_valid);
    EXPECT_TRUE(input.reader.truncated);
    EXPECT_EQ(input.reader.payload_type, 5U);
    EXPECT_EQ(input.reader.payload_size, 16U);
    EXPECT_EQ(input.payload(), (bytes{0x01, 0x02}));
    EXPECT_EQ(input.reader.payload_end, input.reader.end);
    EXPECT_EQ(input.reader.cursor, input.reader.end);

    EXPECT_FALSE(input.reader.next_message());
    EXPECT_FALSE(input.reader.message_valid);
    EXPECT_FALSE(input.reader.truncated);
}

TEST(H265NalSeiReader, CallsAPayloadTruncatedFromOneMissingByteOn) {
    sei whole{0x05, 0x02, 0x01, 0x02};
    ASSERT_TRUE(whole.reader.next_message());
    EXPECT_FALSE(whole.reader.truncated);
    EXPECT_EQ(whole.reader.payload_end, whole.reader.end);

    sei cut{0x05, 0x03, 0x01, 0x02};
    ASSERT_TRUE(cut.reader.next_message());
    EXPECT_TRUE(cut.reader.truncated);

    sei none{0x05, 0x01};
    ASSERT_TRUE(none.reader.next_message());
    EXPECT_TRUE(none.reader.truncated);
    EXPECT_EQ(none.payload(), bytes{});

    sei empty{0x05, 0x00};
    ASSERT_TRUE(empty.reader.next_message());
    EXPECT_FALSE(empty.reader.truncated);
    EXPECT_EQ(empty.payload(), bytes{});
}

TEST(H265NalSeiReader, TakesTheTrailingBitsForNoPartOfACutPayload) {
    sei input{0x05, 0x03, 0x01, 0x02, 0x80};
    ASSERT_TRUE(input.reader.next_message());
    EXPECT_FALSE(input.reader.truncated);
    EXPECT_EQ(input.payload(), (bytes{0x01, 0x02, 0x80}));
}

// A payload of 0xFFFFFFFE bytes: 16843008 times 255, and 254.
TEST(H265NalSeiReader, BearsASizeNearTheEndOfItsRange) {
    bytes data = {0x05};
    data.resize(data.size() + 16843008, 0xFF);
    data.push_back(0xFE);
    data.push_back(0x01);
    sei input(data);
    ASSERT_TRUE(input.reader.next_message());
    EXPECT_TRUE(input.reader.truncated);
    EXPECT_EQ(input.reader.payload_size, 0xFFFFFFFEU);
    EXPECT_EQ(input.payload(), bytes{0x01});
    EXPECT_EQ(input.reader.cursor, input.reader.end);
    EXPECT_FALSE(input.reader.next_message());
}

TEST(H265NalSeiReader, FailsOnFewerThanTwoBytes) {
    for (const bytes& data : {bytes{}, bytes{0x80}, bytes{0x05}, bytes{0xFF}}) {
        sei input(data);
        EXPECT_FALSE(input.reader.next_message());
        expect_no_message(input.reader);
    }
}

TEST(H265NalSeiReader, LeavesASingleByteThatIsNoTrailingBits) {
    sei input{0x01, 0x00, 0x40};
    ASSERT_TRUE(input.reader.next_message());
    EXPECT_EQ(input.cursor_offset(), 2U);
    EXPECT_FALSE(input.reader.next_message());
    EXPECT_FALSE(input.reader.message_valid);
    EXPECT_EQ(input.cursor_offset(), 2U);
}

TEST(H265NalSeiReader, TakesTrailingBitsWithZerosBehindForAMessage) {
    sei input{0x01, 0x00, 0x80, 0x00};
    ASSERT_TRUE(input.reader.next_message());
    EXPECT_EQ(input.cursor_offset(), 2U);
    ASSERT_TRUE(input.reader.next_message());
    EXPECT_EQ(input.reader.payload_type, 128U);
    EXPECT_EQ(input.reader.payload_size, 0U);
}

TEST(H265NalSeiReader, FailsWhenTheTypeIsCutOff) {
    sei input{0x01, 0x00, 0xFF, 0xFF};
    ASSERT_TRUE(input.reader.next_message());
    EXPECT_FALSE(input.reader.next_message());
    EXPECT_FALSE(input.reader.message_valid);
    EXPECT_FALSE(input.reader.truncated);
    EXPECT_EQ(input.message_offset(), 2U);
    EXPECT_EQ(input.reader.payload_type, cut_off);
    EXPECT_EQ(input.reader.cursor, input.reader.end);
    EXPECT_FALSE(input.reader.next_message());
}

TEST(H265NalSeiReader, FailsWhenTheSizeIsCutOffAndKeepsTheType) {
    sei cut_within{0x05, 0xFF};
    EXPECT_FALSE(cut_within.reader.next_message());
    EXPECT_EQ(cut_within.reader.payload_type, 5U);
    EXPECT_EQ(cut_within.reader.payload_size, cut_off);
    EXPECT_EQ(cut_within.reader.cursor, cut_within.reader.end);
    EXPECT_FALSE(cut_within.reader.message_valid);

    sei cut_before{0xFF, 0x05};
    EXPECT_FALSE(cut_before.reader.next_message());
    EXPECT_EQ(cut_before.reader.payload_type, 260U);
    EXPECT_EQ(cut_before.reader.payload_size, cut_off);
    EXPECT_EQ(cut_before.reader.cursor, cut_before.reader.end);
}

TEST(H265NalSeiReader, ReadsEveryBeginningWithoutLookingBehindIt) {
    const bytes whole = {0xFF, 0x05, 0x02, 0xAA, 0xBB, 0x01, 0xFF, 0x00, 0xCC, 0x80};
    for (std::size_t size = 0; size <= whole.size(); ++size) {
        sei input(bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size)));
        std::size_t messages = 0;
        while (input.reader.next_message()) {
            ++messages;
        }
        EXPECT_EQ(messages, size < 3 ? 0U : size < 8 ? 1U : 2U) << size;
    }
}

TEST(H265NalSeiReader, IgnoresTheTypeOfTheNalUnit) {
    sei input(bytes{0x84, 0x01, 0xAA, 0x80}, TRAIL_R);
    ASSERT_TRUE(input.reader.next_message());
    EXPECT_EQ(input.reader.payload_type, 132U);
}

}  // namespace
}  // namespace kovran
