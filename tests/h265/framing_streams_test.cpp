#include <kovran/h265/h265_nal_reader.h>
#include <kovran/h265/h265_nal_writer.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

#include "support/bytewise_framing.h"
#include "support/rbsp.h"
#include "support/stream_reading.h"

namespace kovran {
namespace {

using bytes = std::vector<unsigned char>;

// One NAL unit as the reader found it.
struct unit {
    const unsigned char* begin;
    std::size_t prefix;  // zero bytes and start code, or length
    h265_nal nal;
    bytes rbsp;  // without the header
};

std::vector<unit> read_all(const test::exact_bytes& stream, h2645_common_nalfmt format) {
    std::vector<unit> units;
    h265_nal_reader reader(format);
    reader.scan(stream.begin(), stream.end());
    while (reader.found && !reader.need_more_data) {
        bytes rbsp(static_cast<std::size_t>(reader.decode_fence - reader.decode_ptr));
        rbsp.resize(reader.block_decode(rbsp.data(), rbsp.size()));
        const auto prefix = static_cast<std::size_t>(reader.nal_begin - reader.frame_begin);
        units.push_back({reader.nal_begin, prefix + reader.zero_count, reader.nal, rbsp});
        reader.scan(reader.cursor, stream.end());
    }
    EXPECT_FALSE(reader.found);
    EXPECT_TRUE(reader.need_more_data);
    return units;
}

bytes write_all(const std::vector<unit>& units, h2645_common_nalfmt format) {
    std::size_t size = 0;
    for (const unit& each : units) {
        size += h265_nal_writer::recommended_output_size(each.rbsp.size());
    }
    bytes stream(size);
    h265_nal_writer writer(stream.data(), stream.data(), stream.data() + size, format);
    for (const unit& each : units) {
        const auto zero_bytes = static_cast<unsigned int>(each.prefix - 3);
        EXPECT_NE(writer.block_encode(each.rbsp.data(), each.rbsp.size(), each.nal, zero_bytes),
                  0U);
    }
    stream.resize(writer.data_length());
    return stream;
}

// NOLINTNEXTLINE(readability-identifier-naming): the name of a suite
class FramingStreams : public testing::TestWithParam<std::string> {};

TEST_P(FramingStreams, FindsEveryUnitOfTheReading) {
    const test::stream_reading reading = test::load_stream_reading(GetParam());
    const test::exact_bytes stream(reading.bytes);
    const std::vector<unit> units = read_all(stream, nalfmt_annex_b);
    ASSERT_FALSE(units.empty());
    ASSERT_EQ(units.size(), reading.units.size());

    for (std::size_t i = 0; i < units.size(); ++i) {
        const bool last = i + 1 == units.size();
        const unsigned char* end = last ? stream.end() : units[i + 1].begin - units[i + 1].prefix;
        while (last && end[-1] == 0) {
            --end;
        }
        const test::unit_reading& expected = reading.units[i];
        EXPECT_EQ(static_cast<std::size_t>(units[i].begin - stream.begin()), expected.offset) << i;
        EXPECT_EQ(units[i].prefix, expected.prefix) << i;
        EXPECT_EQ(static_cast<std::size_t>(end - units[i].begin), expected.size) << i;
        EXPECT_EQ(units[i].nal.nal_unit_type, expected.nal_unit_type) << i;
        EXPECT_EQ(units[i].nal.nuh_layer_id, expected.nuh_layer_id) << i;
        EXPECT_EQ(units[i].nal.nuh_temporal_id_plus1, expected.nuh_temporal_id_plus1) << i;
    }
}

TEST_P(FramingStreams, DecodesEveryPayloadByteForByte) {
    const test::exact_bytes stream(test::load_stream(GetParam()));
    for (const unit& each : read_all(stream, nalfmt_annex_b)) {
        test::bytewise_reader reader(nalfmt_annex_b);
        reader.decode_ptr = stream.at(static_cast<std::size_t>(each.begin + 2 - stream.begin()));
        reader.decode_fence = stream.end();
        bytes rbsp(each.rbsp.size() + 3);
        rbsp.resize(reader.block_decode(rbsp.data(), rbsp.size()));
        EXPECT_EQ(each.rbsp, rbsp);
    }
}

TEST_P(FramingStreams, WritesTheStreamItHasRead) {
    const bytes original = test::load_stream(GetParam());
    EXPECT_EQ(write_all(read_all(test::exact_bytes(original), nalfmt_annex_b), nalfmt_annex_b),
              original);
}

TEST_P(FramingStreams, SurvivesLengthPrefixes) {
    const test::exact_bytes stream(test::load_stream(GetParam()));
    const std::vector<unit> units = read_all(stream, nalfmt_annex_b);
    for (const h2645_common_nalfmt format : {nalfmt_length24, nalfmt_length32}) {
        const test::exact_bytes prefixed(write_all(units, format));
        const std::vector<unit> units_again = read_all(prefixed, format);
        ASSERT_EQ(units_again.size(), units.size());
        for (std::size_t i = 0; i < units.size(); ++i) {
            EXPECT_EQ(units_again[i].prefix, format);
            EXPECT_EQ(units_again[i].nal.encode_header(), units[i].nal.encode_header());
            EXPECT_EQ(units_again[i].rbsp, units[i].rbsp);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(AllStreams, FramingStreams, testing::ValuesIn(test::stream_names()),
                         [](const testing::TestParamInfo<std::string>& stream) {
                             return stream.param;
                         });

}  // namespace
}  // namespace kovran
