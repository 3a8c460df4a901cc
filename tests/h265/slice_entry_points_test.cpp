// The end that every slice segment header has, dependent ones too: entry points, extension and
// byte_alignment(), and where the slice data begins.
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_slice_segment_header.h>
#include <kovran/h265/h265_trace.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "support/bit_writer.h"
#include "support/rbsp.h"
#include "support/same_fields.h"
#include "support/slice_record_fields.h"
#include "support/slice_stores.h"

namespace kovran {
namespace {

using bytes = std::vector<unsigned char>;
using values = std::vector<unsigned int>;

// A picture of 6 by 4 coding tree blocks, whose addresses have 5 bits.
struct host : test::slice_stores {
    host() {
        sps().pic_width_in_luma_samples = 384;
        sps().pic_height_in_luma_samples = 256;
        pps().dependent_slice_segments_enabled_flag = true;
    }

    struct outcome {
        bool read;
        std::size_t bits;
        h265_fault fault;
        h265_slice_segment_header slice;
    };

    // Reads without a fault and a trace, and with both: the outcome is the same.
    outcome parse(const bytes& data, unsigned int skipped_bits = 0) {
        test::rbsp input{data};
        input.reader.skip(skipped_bits);
        h265_slice_segment_header plain;
        const bool read =
            plain.parse_standard(input.reader, pps_store, sps_store, vps_store, IDR_N_LP);
        const std::size_t bits = input.reader.bit_position();

        test::rbsp traced_input{data};
        traced_input.reader.skip(skipped_bits);
        h265_trace trace;
        outcome result{};
        result.read = result.slice.parse_standard(traced_input.reader, pps_store, sps_store,
                                                  vps_store, IDR_N_LP, trace, &result.fault);
        result.bits = traced_input.reader.bit_position();
        EXPECT_EQ(result.read, read);
        EXPECT_EQ(result.bits, bits);
        EXPECT_TRUE(test::same_fields(result.slice, plain));
        return result;
    }

    // Bits up to the alignment, which is added; a byte of slice data follows.
    h265_slice_segment_header parsed(test::bit_writer bits) {
        bits.trailing_bits();  // byte_alignment() is the same
        const std::size_t end = bits.size();
        const outcome result = parse(bits.u<8>(0xFF).bytes());
        EXPECT_TRUE(result.read);
        EXPECT_EQ(to_string(result.fault), "no fault");
        EXPECT_EQ(result.bits, end);
        EXPECT_EQ(result.slice.slice_data_begin, end / 8);
        return result.slice;
    }

    // Nothing of what the bits announce behind them is in the data but zeros, which is enough of it
    // or not.
    h265_fault refused(test::bit_writer bits, std::size_t zero_bytes = 64) {
        for (std::size_t i = 0; i < zero_bytes; ++i) {
            bits.u<8>(0);
        }
        const outcome result = parse(bits.bytes());
        EXPECT_FALSE(result.read);
        EXPECT_FALSE(result.slice.valid);
        EXPECT_EQ(result.slice.slice_data_begin, 0U);
        return result.fault;
    }
};

// An IDR picture's I slice, up to slice_qp_delta: 7 bits.
test::bit_writer i_slice() {
    return test::bit_writer().u<1>(1).u<1>(0).ue(0).ue(2).se(0);
}

test::bit_writer dependent_segment() {
    return test::bit_writer().u<1>(0).u<1>(0).ue(0).u<1>(1).u<5>(7);
}

void expect_value(const h265_fault& fault, const std::string& element, std::int64_t value,
                  std::int64_t highest) {
    SCOPED_TRACE(to_string(fault));
    EXPECT_EQ(fault.kind, h265_fault_kind::value);
    EXPECT_EQ(to_string(fault.element), element);
    EXPECT_EQ(fault.value, value);
    EXPECT_EQ(fault.lowest, 0);
    EXPECT_EQ(fault.highest, highest);
}

// ---- Entry points

TEST(SliceEntryPoints, AreThoseOfTilesOrWavefronts) {
    for (const bool dependent : {false, true}) {
        const test::bit_writer start = dependent ? dependent_segment() : i_slice();
        host stream;
        const auto absent = stream.parsed(start);
        EXPECT_EQ(absent.dependent_slice_segment_flag, dependent);
        EXPECT_EQ(absent.num_entry_point_offsets, 0U);
        EXPECT_TRUE(absent.entry_point_offset_minus1.empty());
        for (const bool tiles : {true, false}) {
            stream.pps().tiles_enabled_flag = tiles;
            stream.pps().num_tile_columns_minus1 = 2;
            stream.pps().entropy_coding_sync_enabled_flag = !tiles;
            const auto none = stream.parsed(test::bit_writer(start).ue(0));
            EXPECT_EQ(none.num_entry_point_offsets, 0U);
            EXPECT_EQ(none.offset_len_minus1, 0U);
            const auto two =
                stream.parsed(test::bit_writer(start).ue(2).ue(10).u<11>(2047).u<11>(5));
            EXPECT_EQ(two.num_entry_point_offsets, 2U);
            EXPECT_EQ(two.offset_len_minus1, 10U);
            EXPECT_EQ(two.entry_point_offset_minus1, (values{2047, 5}));
        }
    }
}

TEST(SliceEntryPoints, HaveOneBitTo32) {
    host stream;
    stream.pps().entropy_coding_sync_enabled_flag = true;
    EXPECT_EQ(stream.parsed(i_slice().ue(3).ue(0).u<3>(0b101)).entry_point_offset_minus1,
              (values{1, 0, 1}));
    const auto wide =
        stream.parsed(i_slice().ue(3).ue(31).u<32>(0xFFFFFFFF).u<32>(0).u<32>(0x89ABCDEF));
    EXPECT_EQ(wide.entry_point_offset_minus1, (values{0xFFFFFFFF, 0, 0x89ABCDEF}));
    expect_value(stream.refused(i_slice().ue(1).ue(32)), "offset_len_minus1", 32, 31);
    expect_value(stream.refused(i_slice().ue(1).ue(0xFFFFFFFE)), "offset_len_minus1", 0xFFFFFFFE,
                 31);
}

// One less than there are tiles, rows, or rows of all tile columns. The last three PPSs have more
// tile columns or rows than the picture has blocks.
TEST(SliceEntryPoints, AreOneLessThanSubstreams) {
    struct {
        bool tiles, wavefronts;
        unsigned int columns, rows, most;
    } const pictures[] = {{true, false, 3, 2, 5}, {true, false, 1, 4, 3},  {true, false, 6, 4, 23},
                          {false, true, 3, 2, 3}, {true, true, 3, 2, 11},  {true, true, 1, 4, 3},
                          {true, true, 2, 1, 7},  {true, false, 7, 2, 11}, {true, false, 3, 9, 11},
                          {true, true, 9, 2, 23}};
    for (const auto& [tiles, wavefronts, columns, rows, most] : pictures) {
        SCOPED_TRACE(std::to_string(columns) + " by " + std::to_string(rows));
        host stream;
        stream.pps().tiles_enabled_flag = tiles;
        stream.pps().entropy_coding_sync_enabled_flag = wavefronts;
        stream.pps().num_tile_columns_minus1 = columns - 1;
        stream.pps().num_tile_rows_minus1 = rows - 1;
        test::bit_writer bits = i_slice().ue(most).ue(0);
        for (unsigned int i = 0; i < most; ++i) {
            bits.u<1>(1);
        }
        EXPECT_EQ(stream.parsed(bits).entry_point_offset_minus1, values(most, 1));
        expect_value(stream.refused(i_slice().ue(most + 1).ue(0)), "num_entry_point_offsets",
                     most + 1, most);
        expect_value(stream.refused(dependent_segment().ue(most + 1).ue(0)),
                     "num_entry_point_offsets", most + 1, most);
    }
}

TEST(SliceEntryPoints, AreNoneInAPictureOfOneRow) {
    host stream;
    stream.pps().entropy_coding_sync_enabled_flag = true;
    stream.sps().pic_height_in_luma_samples = 64;
    EXPECT_EQ(stream.parsed(i_slice().ue(0)).num_entry_point_offsets, 0U);
    expect_value(stream.refused(i_slice().ue(1).ue(0)), "num_entry_point_offsets", 1, 0);
}

TEST(SliceEntryPoints, AreRefusedInAPictureWithoutBlocks) {
    host stream;
    stream.pps().entropy_coding_sync_enabled_flag = true;
    stream.sps().log2_diff_max_min_luma_coding_block_size = 29;  // blocks of 2^32
    expect_value(stream.refused(i_slice().ue(0)), "num_entry_point_offsets", 0, -1);
    stream.sps().log2_diff_max_min_luma_coding_block_size = 3;
    stream.sps().pic_height_in_luma_samples = 0;
    expect_value(stream.refused(i_slice().ue(0)), "num_entry_point_offsets", 0, -1);
}

// A picture of 2^29 by 2^29 blocks, as no level has: the data bound the entry points.
TEST(SliceEntryPoints, AreNoMoreThanTheDataHold) {
    host stream;
    stream.pps().tiles_enabled_flag = true;
    stream.pps().entropy_coding_sync_enabled_flag = true;
    stream.pps().num_tile_columns_minus1 = 0xFFFFFFFE;
    stream.sps().log2_diff_max_min_luma_coding_block_size = 0;
    stream.sps().pic_width_in_luma_samples = 0xFFFFFFF8;
    stream.sps().pic_height_in_luma_samples = 0xFFFFFFF8;
    for (const unsigned int entries : {65U, 100000U, 0xFFFFFFFEU}) {
        // The codes end in the byte that the zeros follow.
        test::bit_writer bits = i_slice().ue(entries).ue(7);
        while (bits.size() % 8 != 0) {
            bits.u<1>(0);
        }
        const test::bit_writer codes = i_slice().ue(entries).ue(7);
        const auto left =
            static_cast<std::int64_t>(std::size_t{64} * 8 + bits.size() - codes.size());
        const h265_fault fault = stream.refused(bits, 64);
        expect_value(fault, "num_entry_point_offsets", entries, left / 8);
    }
    test::bit_writer fitting = i_slice().ue(64).ue(7);
    for (unsigned int i = 0; i < 64; ++i) {
        fitting.u<8>(i);
    }
    EXPECT_EQ(stream.parsed(fitting).entry_point_offset_minus1.back(), 63U);
}

// ---- The extension

TEST(SliceExtension, IsReadWhenThePpsSaysSo) {
    for (const bool dependent : {false, true}) {
        const test::bit_writer start = dependent ? dependent_segment() : i_slice();
        host stream;
        const auto absent = stream.parsed(start);
        EXPECT_EQ(absent.slice_segment_header_extension_length, 0U);
        stream.pps().slice_segment_header_extension_present_flag = true;
        const auto empty = stream.parsed(test::bit_writer(start).ue(0));
        EXPECT_EQ(empty.slice_segment_header_extension_length, 0U);
        EXPECT_TRUE(empty.slice_segment_header_extension_data_byte.empty());
        const auto three = stream.parsed(test::bit_writer(start).ue(3).u<24>(0x00FF7A));
        EXPECT_EQ(three.slice_segment_header_extension_length, 3U);
        EXPECT_EQ(three.slice_segment_header_extension_data_byte, (bytes{0x00, 0xFF, 0x7A}));
    }
}

TEST(SliceExtension, Has256BytesAtTheMost) {
    host stream;
    stream.pps().slice_segment_header_extension_present_flag = true;
    test::bit_writer bits = i_slice().ue(256);
    bytes data;
    for (unsigned int i = 0; i < 256; ++i) {
        bits.u<8>(255 - i);
        data.push_back(static_cast<unsigned char>(255 - i));
    }
    EXPECT_EQ(stream.parsed(bits).slice_segment_header_extension_data_byte, data);
    expect_value(stream.refused(i_slice().ue(257), 300), "slice_segment_header_extension_length",
                 257, 256);
    expect_value(stream.refused(i_slice().ue(0xFFFFFFFE), 300),
                 "slice_segment_header_extension_length", 0xFFFFFFFE, 256);
}

TEST(SliceExtension, HasNoMoreBytesThanTheData) {
    host stream;
    stream.pps().slice_segment_header_extension_present_flag = true;
    // 18 bits, the length included, and then 70.
    expect_value(stream.refused(i_slice().ue(40), 8), "slice_segment_header_extension_length", 40,
                 8);
}

TEST(SliceExtension, StandsBehindTheEntryPoints) {
    host stream;
    stream.pps().entropy_coding_sync_enabled_flag = true;
    stream.pps().slice_segment_header_extension_present_flag = true;
    const auto slice = stream.parsed(i_slice().ue(1).ue(3).u<4>(9).ue(1).u<8>(0xA5));
    EXPECT_EQ(slice.entry_point_offset_minus1, values{9});
    EXPECT_EQ(slice.slice_segment_header_extension_data_byte, bytes{0xA5});
}

// ---- Reserved bits

TEST(SliceExtraBits, AreSkippedAsThePpsSays) {
    for (unsigned int bits = 0; bits <= 7; ++bits) {
        for (const bool ones : {false, true}) {
            host stream;
            stream.pps().num_extra_slice_header_bits = static_cast<unsigned char>(bits);
            test::bit_writer header = test::bit_writer().u<1>(1).u<1>(0).ue(0);
            for (unsigned int i = 0; i < bits; ++i) {
                header.u<1>(ones ? 1 : 0);
            }
            const auto slice = stream.parsed(header.ue(2).se(-7));
            EXPECT_EQ(slice.slice_type, 2U);
            EXPECT_EQ(slice.slice_qp_delta, -7);
            const auto dependent = stream.parsed(dependent_segment());  // has none
            EXPECT_EQ(dependent.slice_segment_address, 7U);
        }
    }
}

// ---- The alignment

// 7 bits, and the alignment in the last one; 8 bits, and a byte of alignment.
TEST(SliceAlignment, HasAtLeastOneBit) {
    host stream;
    const auto seven = stream.parse({0b1'0'1'011'1'1});
    EXPECT_TRUE(seven.read);
    EXPECT_EQ(seven.slice.slice_data_begin, 1U);
    EXPECT_EQ(seven.bits, 8U);

    stream.pps().output_flag_present_flag = true;
    const auto eight = stream.parse({0b1'0'1'011'1'1, 0x80});
    EXPECT_TRUE(eight.read);
    EXPECT_EQ(to_string(eight.fault), "no fault");
    EXPECT_EQ(eight.slice.slice_data_begin, 2U);
    EXPECT_EQ(eight.bits, 16U);

    const auto without = stream.parse({0b1'0'1'011'1'1});
    EXPECT_FALSE(without.read);
    EXPECT_FALSE(without.slice.valid);
    EXPECT_EQ(without.slice.slice_data_begin, 0U);
    EXPECT_EQ(without.fault.kind, h265_fault_kind::data_ended);
    EXPECT_EQ(to_string(without.fault.element), "alignment_bit_equal_to_one");
    EXPECT_EQ(without.fault.first_bit, 8U);
}

// The header is kept, and the fault told.
TEST(SliceAlignment, MayBeMalformed) {
    host stream;
    stream.pps().output_flag_present_flag = true;
    const auto first_bit = stream.parse({0b1'0'1'011'1'1, 0b0'0000000, 0xFF});
    EXPECT_TRUE(first_bit.read);
    EXPECT_TRUE(first_bit.slice.valid);
    EXPECT_EQ(first_bit.slice.slice_data_begin, 2U);
    EXPECT_EQ(first_bit.fault.kind, h265_fault_kind::trailing_bits);
    EXPECT_EQ(to_string(first_bit.fault.element), "alignment_bit_equal_to_one");
    EXPECT_EQ(first_bit.fault.first_bit, 8U);
    EXPECT_EQ(first_bit.fault.value, 0);
    EXPECT_EQ(first_bit.fault.lowest, 1);
    EXPECT_EQ(first_bit.fault.highest, 1);

    const auto other_bit = stream.parse({0b1'0'1'011'1'1, 0b1'0001000, 0xFF});
    EXPECT_TRUE(other_bit.read);
    EXPECT_EQ(other_bit.slice.slice_data_begin, 2U);
    EXPECT_EQ(other_bit.bits, 16U);
    EXPECT_EQ(other_bit.fault.kind, h265_fault_kind::trailing_bits);
    EXPECT_EQ(to_string(other_bit.fault.element), "alignment_bit_equal_to_zero");
    EXPECT_EQ(other_bit.fault.first_bit, 12U);
    EXPECT_EQ(other_bit.fault.value, 1);
    EXPECT_EQ(other_bit.fault.highest, 0);
}

TEST(SliceAlignment, IsTraced) {
    host stream;
    test::rbsp input{0b1'0'1'011'00, 0b100'1'1000, 0xFF};  // slice_qp_delta is 2
    h265_slice_segment_header slice;
    h265_trace trace;
    EXPECT_TRUE(slice.parse_standard(input.reader, stream.pps_store, stream.sps_store,
                                     stream.vps_store, IDR_N_LP, trace));
    ASSERT_EQ(trace.elements.size(), 5U + 5U);
    EXPECT_STREQ(trace.elements[4].name, "slice_qp_delta");
    EXPECT_EQ(trace.elements[4].value, 2);
    EXPECT_STREQ(trace.elements[5].name, "alignment_bit_equal_to_one");
    EXPECT_EQ(trace.elements[5].first_bit, 11U);
    EXPECT_STREQ(trace.elements[5].descriptor, "f(1)");
    EXPECT_FALSE(trace.elements[5].out_of_range);
    EXPECT_STREQ(trace.elements[6].name, "alignment_bit_equal_to_zero");
    EXPECT_TRUE(trace.elements[6].out_of_range);
    EXPECT_FALSE(trace.elements[7].out_of_range);
    EXPECT_EQ(trace.elements[9].first_bit, 15U);
}

// ---- Where the slice data begins

TEST(SliceData, IsNotLookedAt) {
    host stream;
    const bytes header = {0b1'0'1'011'1'1};
    const auto expected = stream.parse(header);  // none
    ASSERT_TRUE(expected.read);
    for (const bytes& data : {bytes{0x00}, bytes{0x80}, bytes(7, 0x00),
                              bytes{0x00, 0x00, 0x03, 0x00}, bytes(99, 0xFF)}) {
        bytes unit = header;
        unit.insert(unit.end(), data.begin(), data.end());
        const auto result = stream.parse(unit);
        EXPECT_TRUE(result.read);
        EXPECT_EQ(to_string(result.fault), "no fault");
        EXPECT_EQ(result.bits, 8U);
        EXPECT_TRUE(test::same_fields(result.slice, expected.slice));
    }
}

// A reader that was made for the whole NAL unit has its header in front.
TEST(SliceData, IsCountedFromWhereTheReaderBegins) {
    host stream;
    for (unsigned int in_front = 0; in_front <= 5; ++in_front) {
        bytes unit(in_front, 0x5A);
        unit.insert(unit.end(), {0b1'0'1'011'1'1, 0x80});
        const auto result = stream.parse(unit, 8 * in_front);
        EXPECT_TRUE(result.read);
        EXPECT_EQ(result.slice.slice_data_begin, in_front + 1);
    }
}

// 5 bits are skipped; 7 of the header end 4 bits into the second byte.
TEST(SliceData, BeginsWithAByteOfTheReader) {
    host stream;
    const auto result = stream.parse({0b11111'1'0'1, 0b011'1'1'000, 0xFF}, 5);
    EXPECT_TRUE(result.read);
    EXPECT_EQ(to_string(result.fault), "no fault");
    EXPECT_EQ(result.slice.slice_data_begin, 2U);
    EXPECT_EQ(result.bits, 16U);
}

// ---- Dependent segments

TEST(DependentSliceSegment, HasAnEndOfItsOwnAndNothingElse) {
    host stream;
    stream.pps().entropy_coding_sync_enabled_flag = true;
    stream.pps().slice_segment_header_extension_present_flag = true;
    stream.pps().num_ref_idx_l1_default_active_minus1 = 3;
    stream.sps().num_short_term_ref_pic_sets = 2;
    stream.pps().pps_beta_offset_div2 = 4;
    stream.pps().cabac_init_present_flag = true;
    stream.pps().num_extra_slice_header_bits = 2;
    test::bit_writer bits = dependent_segment().ue(1).ue(7).u<8>(200);
    const auto slice = stream.parsed(bits.ue(2).u<16>(0xBEEF));
    h265_slice_segment_header expected;
    expected.dependent_slice_segment_flag = true;
    expected.slice_segment_address = 7;
    expected.num_ref_idx_l1_active_minus1 = 3;
    expected.CurrRpsIdx = 2;
    expected.valid = true;
    expected.num_entry_point_offsets = 1;
    expected.offset_len_minus1 = 7;
    expected.entry_point_offset_minus1 = {200};
    expected.slice_segment_header_extension_length = 2;
    expected.slice_segment_header_extension_data_byte = {0xBE, 0xEF};
    expected.slice_data_begin = 6;  // 9 bits, 3 and 7 and 8, 3 and 16: 46
    EXPECT_TRUE(test::same_fields(slice, expected));
}

}  // namespace
}  // namespace kovran
