// What short data can ask for at the end of a slice segment header by the standard's rules: the
// largest counts, with data behind them that holds many entries, few or none. SECURITY.md states
// the bounds.
#include <kovran/h265/h265_slice_segment_header.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <vector>

#include "support/allocation_failure.h"
#include "support/bit_writer.h"
#include "support/rbsp.h"
#include "support/slice_stores.h"

namespace kovran {
namespace {

using test::bit_writer;

constexpr std::size_t memory_for_any_data = std::size_t{64} << 10;
constexpr std::size_t memory_for_a_byte = 4096;
constexpr std::size_t bits_for_any_data = 65536;
constexpr std::size_t bits_for_a_byte = 512;

// Weights, tiles with wavefronts, the extension, and a picture larger than any level has.
struct host : test::slice_stores {
    host() {
        sps().pic_width_in_luma_samples = 0xFFFFFFF8;
        sps().pic_height_in_luma_samples = 0xFFFFFFF8;
        sps().log2_diff_max_min_luma_coding_block_size = 0;
        pps().weighted_pred_flag = true;
        pps().weighted_bipred_flag = true;
        pps().tiles_enabled_flag = true;
        pps().entropy_coding_sync_enabled_flag = true;
        pps().num_tile_columns_minus1 = 0xFFFFFFFE;
        pps().slice_segment_header_extension_present_flag = true;
        pps().dependent_slice_segments_enabled_flag = true;
    }
};

// Behind the bits come bytes of which entries are made: elements of one bit, of three, of zeros,
// and of few bits among many. The last byte is the last of its memory.
void expect_bounded(host& stream, const bit_writer& up_to_the_count) {
    for (const unsigned int filling : {0xFFU, 0x5BU, 0x00U, 0x80U, 0x01U}) {
        for (const std::size_t size : {0U, 1U, 4U, 16U, 64U, 256U, 4096U, 20000U}) {
            SCOPED_TRACE(testing::Message() << size << " bytes of " << filling);
            std::vector<unsigned char> data = up_to_the_count.bytes();
            data.insert(data.end(), size, static_cast<unsigned char>(filling));
            test::rbsp input{data};
            const test::allocation_count before;
            h265_slice_segment_header slice;
            static_cast<void>(slice.parse_standard(input.reader, stream.pps_store, stream.sps_store,
                                                   stream.vps_store, IDR_N_LP));
            EXPECT_LE(before.bytes(), memory_for_any_data + memory_for_a_byte * data.size());
            EXPECT_LE(input.reader.bit_position(),
                      bits_for_any_data + (8 + bits_for_a_byte) * data.size());
        }
    }
}

// Of an IDR picture, up to the reference indices or slice_qp_delta.
bit_writer start_of(unsigned int slice_type) {
    return bit_writer().u<1>(1).u<1>(0).ue(0).ue(slice_type);
}

TEST(SliceBoundsByStandard, OfEntryPoints) {
    host stream;
    for (const unsigned int entries : {1U, 1000U, 1048576U, 1048577U, 0xFFFFFFFEU}) {
        for (const unsigned int offset_len_minus1 : {0U, 31U, 32U, 0xFFFFFFFEU}) {
            expect_bounded(stream, start_of(2).se(0).ue(entries).ue(offset_len_minus1));
            // A dependent segment, whose address has 32 bits here.
            stream.sps().pic_height_in_luma_samples = 64;
            expect_bounded(stream,
                           bit_writer().u<1>(0).u<1>(0).ue(0).u<1>(1).u<32>(1).ue(entries).ue(
                               offset_len_minus1));
            stream.sps().pic_height_in_luma_samples = 0xFFFFFFF8;
        }
    }
}

TEST(SliceBoundsByStandard, OfTheExtension) {
    host stream;
    for (const unsigned int length : {1U, 255U, 256U, 257U, 1048576U, 0xFFFFFFFEU}) {
        expect_bounded(stream, start_of(2).se(0).ue(0).ue(length));
    }
}

TEST(SliceBoundsByStandard, OfWeights) {
    host stream;
    for (const unsigned int entries : {1U, 15U, 16U, 1048576U}) {
        for (const bool current : {false, true}) {
            stream.pps().pps_scc_extension.pps_curr_pic_ref_enabled_flag = current;
            expect_bounded(stream, start_of(1).u<1>(1).ue(entries - 1));
            expect_bounded(stream, start_of(0).u<1>(1).ue(entries - 1).ue(entries - 1));
        }
    }
}

// Nothing is allocated for what is refused.
TEST(SliceBoundsByStandard, AllocateNothingForEntriesThatTheDataDoNotHold) {
    host stream;
    const auto expect_no_memory = [&stream](const bit_writer& bits) {
        test::rbsp input{bits.bytes()};
        const test::allocation_count before;
        h265_slice_segment_header slice;
        EXPECT_FALSE(slice.parse_standard(input.reader, stream.pps_store, stream.sps_store,
                                          stream.vps_store, IDR_N_LP));
        EXPECT_EQ(before.allocations(), 0U);
    };
    expect_no_memory(start_of(2).se(0).ue(1000000).ue(0).u<64>(0));
    expect_no_memory(start_of(2).se(0).ue(3).ue(31).u<64>(0));
    expect_no_memory(start_of(2).se(0).ue(3).ue(32).u<64>(0).u<64>(0));
    expect_no_memory(start_of(2).se(0).ue(0).ue(256).u<64>(0));
    expect_no_memory(start_of(2).se(0).ue(0).ue(257).u<64>(0));
}

}  // namespace
}  // namespace kovran
