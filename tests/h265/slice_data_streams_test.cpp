// Where the slice segment headers of real streams end, beside where an independent reader says that
// they end.
#include <kovran/h265/h265_slice_segment_header.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

#include "inspect/reading_elements.h"
#include "support/rbsp.h"
#include "support/rbsp_of_unit.h"
#include "support/stream_reading.h"
#include "support/tracing_host.h"

namespace kovran {
namespace {

using test::expected_element;

bool is_slice(const test::unit_reading& unit) {
    return unit.nal_unit_type < VPS_NUT && !unit.elements.empty();
}

// byte_alignment(), clause 7.3.2.12: the bits behind the header.
void expect_alignment(const std::vector<expected_element>& reading) {
    std::size_t index = test::index_of(reading, "alignment_bit_equal_to_one");
    ASSERT_LT(index, reading.size());
    EXPECT_EQ(reading[index].value, "1");
    while (++index < reading.size()) {
        EXPECT_EQ(reading[index].name, "alignment_bit_equal_to_zero");
        EXPECT_EQ(reading[index].value, "0");
    }
    EXPECT_EQ((reading.back().bit + 1) % 8, 0U);
}

// NOLINTNEXTLINE(readability-identifier-naming): the name of a suite
class SliceDataOfStreams : public testing::TestWithParam<std::string> {};

TEST_P(SliceDataOfStreams, BeginsWhereTheReadingOfTheHeaderEnds) {
    const test::stream_reading stream = test::load_stream_reading(GetParam());
    test::tracing_host host;
    for (const test::unit_reading& unit : stream.units) {
        if (unit.nuh_layer_id != 0) {
            continue;
        }
        SCOPED_TRACE("unit at " + std::to_string(unit.offset));
        const auto type = static_cast<h265_nal_unit_type>(unit.nal_unit_type);
        const std::vector<unsigned char> rbsp = test::rbsp_of_unit(stream, unit);
        if (!is_slice(unit)) {
            host.read(type, rbsp);
            continue;
        }
        const std::vector<expected_element> reading =
            test::elements_of({{"elements", unit.elements}});
        expect_alignment(reading);
        const std::size_t end = reading.back().bit + 1;

        test::rbsp input{rbsp};
        h265_slice_segment_header slice;
        EXPECT_TRUE(slice.parse_standard(input.reader, host.pps_store, host.sps_store,
                                         host.vps_store, type));
        EXPECT_EQ(slice.slice_data_begin, end / 8);
        EXPECT_EQ(input.reader.bit_position(), end);
    }
}

INSTANTIATE_TEST_SUITE_P(AllStreams, SliceDataOfStreams, testing::ValuesIn(test::stream_names()),
                         [](const testing::TestParamInfo<std::string>& stream) {
                             return stream.param;
                         });

}  // namespace
}  // namespace kovran
