// Headers of random bits by parameter sets with random flags: each way to read them by the
// standard's rules has the same outcome.
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_slice_segment_header.h>
#include <kovran/h265/h265_trace.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <random>
#include <vector>

#include "support/rbsp.h"
#include "support/same_fields.h"
#include "support/slice_record_fields.h"
#include "support/slice_stores.h"

namespace kovran {
namespace {

class noise {
public:
    explicit noise(unsigned int seed) : engine_(seed) {}

    unsigned int up_to(unsigned int most) {
        return static_cast<unsigned int>(engine_() % (std::uint64_t{most} + 1));
    }
    bool flag() { return up_to(1) != 0; }

    // Up to 80 bytes. Some have few zeros, so that codes are short.
    std::vector<unsigned char> data() {
        std::vector<unsigned char> bytes(up_to(80));
        const unsigned int set = flag() ? 0x92 : 0;
        for (unsigned char& byte : bytes) {
            byte = static_cast<unsigned char>(up_to(255) | set);
        }
        return bytes;
    }

private:
    std::mt19937 engine_;
};

void fill(h265_nal_sps& sps, noise& random) {
    sps.chroma_format_idc = random.up_to(3);
    sps.separate_colour_plane_flag = sps.chroma_format_idc == 3 && random.flag();
    sps.pic_width_in_luma_samples = 64 * (1 + random.up_to(5));
    sps.pic_height_in_luma_samples = 64 * (1 + random.up_to(5));
    sps.num_short_term_ref_pic_sets = random.up_to(3);
    sps.st_ref_pic_set.assign(sps.num_short_term_ref_pic_sets, {});
    for (h265_st_ref_pic_set& set : sps.st_ref_pic_set) {
        set.num_negative_pics = random.up_to(4);
        set.NumDeltaPocs = set.num_negative_pics;
        set.delta_poc_s0_minus1.assign(set.num_negative_pics, 0);
        set.used_by_curr_pic_s0_flag.assign(set.num_negative_pics, random.flag());
    }
    sps.long_term_ref_pics_present_flag = random.flag();
    sps.sps_temporal_mvp_enabled_flag = random.flag();
    sps.sample_adaptive_offset_enabled_flag = random.flag();
    sps.sps_scc_extension.motion_vector_resolution_control_idc =
        static_cast<unsigned char>(random.up_to(3));
}

void fill(h265_nal_pps& pps, noise& random) {
    pps.dependent_slice_segments_enabled_flag = random.flag();
    pps.output_flag_present_flag = random.flag();
    pps.num_extra_slice_header_bits = static_cast<unsigned char>(random.up_to(2));
    pps.cabac_init_present_flag = random.flag();
    pps.lists_modification_present_flag = random.flag();
    pps.num_ref_idx_l0_default_active_minus1 = random.up_to(14);
    pps.num_ref_idx_l1_default_active_minus1 = random.up_to(14);
    pps.weighted_pred_flag = random.flag();
    pps.weighted_bipred_flag = random.flag();
    pps.pps_slice_chroma_qp_offsets_present_flag = random.flag();
    pps.deblocking_filter_override_enabled_flag = random.flag();
    pps.pps_deblocking_filter_disabled_flag = random.flag();
    pps.pps_loop_filter_across_slices_enabled_flag = random.flag();
    pps.tiles_enabled_flag = random.flag();
    pps.num_tile_columns_minus1 = random.up_to(5);
    pps.entropy_coding_sync_enabled_flag = random.flag();
    pps.slice_segment_header_extension_present_flag = random.flag();
    pps.pps_range_extension.chroma_qp_offset_list_enabled_flag = random.flag();
    pps.pps_scc_extension.pps_curr_pic_ref_enabled_flag = random.flag();
    pps.pps_scc_extension.pps_slice_act_qp_offsets_present_flag = random.flag();
}

TEST(SliceNoise, IsReadAlikeInEveryWay) {
    noise random(13);
    h265_slice_segment_header used;
    h265_trace trace;
    int reads = 0;
    int refusals = 0;
    for (int i = 0; i < 20000 && !HasFailure(); ++i) {
        SCOPED_TRACE(i);
        test::slice_stores stream;
        fill(stream.sps(), random);
        fill(stream.pps(), random);
        const h265_nal_unit_type type = random.up_to(3) == 0 ? IDR_N_LP : TRAIL_R;
        std::vector<unsigned char> data = random.data();
        if (!data.empty()) {
            // PPS 0; first_slice_segment_in_pic_flag is random.
            data[0] = static_cast<unsigned char>(data[0] | (type == IDR_N_LP ? 0x20 : 0x40));
        }
        test::rbsp input{data};
        h265_slice_segment_header fresh;
        const bool read = fresh.parse_standard(input.reader, stream.pps_store, stream.sps_store,
                                               stream.vps_store, type);
        EXPECT_EQ(fresh.valid, read);
        (read ? reads : refusals) += 1;
        if (read) {
            EXPECT_EQ(input.reader.bit_position(), 8 * fresh.slice_data_begin);
            EXPECT_LE(fresh.slice_data_begin, data.size());
        } else {
            EXPECT_EQ(fresh.slice_data_begin, 0U);
        }

        test::rbsp again{data};
        EXPECT_EQ(used.parse_standard(again.reader, stream.pps_store, stream.sps_store,
                                      stream.vps_store, type),
                  read);
        EXPECT_TRUE(test::same_fields(used, fresh));
        EXPECT_EQ(again.reader.bit_position(), input.reader.bit_position());

        test::rbsp traced{data};
        h265_slice_segment_header listed;
        h265_fault fault;
        EXPECT_EQ(listed.parse_standard(traced.reader, stream.pps_store, stream.sps_store,
                                        stream.vps_store, type, trace, &fault),
                  read);
        EXPECT_TRUE(test::same_fields(listed, fresh));
        EXPECT_EQ(traced.reader.bit_position(), input.reader.bit_position());
        const bool is_told = fault.kind != h265_fault_kind::none;
        EXPECT_EQ(read, !is_told || fault.kind == h265_fault_kind::trailing_bits)
            << to_string(fault);
        // The elements lie one behind the other, up to the slice data.
        std::size_t position = 0;
        for (const h265_traced_element& element : trace.elements) {
            EXPECT_EQ(element.first_bit, position) << element.name;
            position += element.width;
        }
        if (read) {
            EXPECT_EQ(position, 8 * fresh.slice_data_begin);
        }
    }
    EXPECT_GT(reads, 1000);
    EXPECT_GT(refusals, 1000);
}

}  // namespace
}  // namespace kovran
