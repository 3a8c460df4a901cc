// Real parameter sets and slice segment headers with one bit flipped, each in turn: no failure goes
// untold, and to tell changes nothing.
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_nal_pps.h>
#include <kovran/h265/h265_nal_sps.h>
#include <kovran/h265/h265_nal_vps.h>
#include <kovran/h265/h265_slice_segment_header.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

#include "support/rbsp.h"
#include "support/rbsp_of_unit.h"
#include "support/same_fields.h"
#include "support/slice_record_fields.h"
#include "support/stream_reading.h"
#include "support/tracing_host.h"

namespace kovran {
namespace {

using bytes = std::vector<unsigned char>;

// parse(record, reader, fault) with a fault pointer that may be null.
template <class Record, class Parse>
void expect_every_flip_is_told(const bytes& rbsp, std::size_t bits, Parse parse) {
    for (std::size_t bit = 0; bit < bits && !testing::Test::HasFailure(); ++bit) {
        bytes flipped = rbsp;
        flipped[bit / 8] = static_cast<unsigned char>(flipped[bit / 8] ^ 0x80U >> bit % 8);
        Record told;
        Record untold;
        h265_fault fault;
        test::rbsp input{flipped};
        test::rbsp other_input{flipped};
        const bool read = parse(told, input.reader, &fault);
        SCOPED_TRACE("bit " + std::to_string(bit) + ": " + to_string(fault));
        EXPECT_EQ(parse(untold, other_input.reader, nullptr), read);
        EXPECT_TRUE(test::same_fields(told, untold));
        EXPECT_EQ(input.reader.bit_position(), other_input.reader.bit_position());
        const bool is_told = fault.kind != h265_fault_kind::none;
        EXPECT_TRUE(!read == is_told || fault.kind == h265_fault_kind::trailing_bits ||
                    fault.kind == h265_fault_kind::unknown_extension);
        EXPECT_TRUE(!is_told || *fault.element.name != '\0');
    }
}

constexpr std::size_t longest_slice_header = 256;

void expect_every_flip_is_told(test::tracing_host& host, h265_nal_unit_type type,
                               const bytes& rbsp) {
    switch (type) {
        case VPS_NUT:
            expect_every_flip_is_told<h265_nal_vps>(rbsp, 8 * rbsp.size(),
                                                    [](auto& vps, auto& reader, h265_fault* fault) {
                                                        return vps.parse_standard(reader, fault);
                                                    });
            break;
        case SPS_NUT:
            expect_every_flip_is_told<h265_nal_sps>(
                rbsp, 8 * rbsp.size(), [&](auto& sps, auto& reader, h265_fault* fault) {
                    return sps.parse_standard(reader, host.vps_store, fault);
                });
            break;
        case PPS_NUT:
            expect_every_flip_is_told<h265_nal_pps>(
                rbsp, 8 * rbsp.size(), [&](auto& pps, auto& reader, h265_fault* fault) {
                    return pps.parse_standard(reader, host.sps_store, fault);
                });
            break;
        default:
            expect_every_flip_is_told<h265_slice_segment_header>(
                rbsp, std::min(8 * rbsp.size(), longest_slice_header),
                [&](auto& slice, auto& reader, h265_fault* fault) {
                    return slice.parse_standard(reader, host.pps_store, host.sps_store,
                                                host.vps_store, type, fault);
                });
            break;
    }
}

// NOLINTNEXTLINE(readability-identifier-naming): the name of a suite
class BitFlips : public testing::TestWithParam<std::string> {};

// The parameter sets and the first slices of each stream.
TEST_P(BitFlips, AreToldWhereTheyMakeAParseFail) {
    const test::stream_reading stream = test::load_stream_reading(GetParam());
    test::tracing_host host;
    int slices = 0;
    for (const test::unit_reading& unit : stream.units) {
        const auto type = static_cast<h265_nal_unit_type>(unit.nal_unit_type);
        const bool is_slice = type <= CRA_NUT;
        if (unit.nuh_layer_id != 0 || type > PPS_NUT) {
            continue;
        }
        const bytes rbsp = test::rbsp_of_unit(stream, unit);
        host.read(type, rbsp);
        slices += is_slice ? 1 : 0;
        if (!is_slice || slices <= 8) {
            expect_every_flip_is_told(host, type, rbsp);
        }
    }
    EXPECT_GT(slices, 0);
}

INSTANTIATE_TEST_SUITE_P(SomeStreams, BitFlips,
                         testing::Values("hm_hrd_subpic", "hm_scaling_file444", "hm_tiles_nu",
                                         "hmx_listmod_b", "hmx_ltrsps5", "hmx_vps_hrd1", "hrd_vbr"),
                         [](const testing::TestParamInfo<std::string>& stream) {
                             return stream.param;
                         });

}  // namespace
}  // namespace kovran
