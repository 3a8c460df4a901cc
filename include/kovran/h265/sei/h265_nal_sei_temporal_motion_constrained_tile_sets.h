#ifndef KOVRAN_H265_SEI_H265_NAL_SEI_TEMPORAL_MOTION_CONSTRAINED_TILE_SETS_H
#define KOVRAN_H265_SEI_H265_NAL_SEI_TEMPORAL_MOTION_CONSTRAINED_TILE_SETS_H

#include <kovran/export.h>
#include <kovran/h2645_common/h2645_common_bitreader.h>
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_trace.h>

#include <vector>

namespace kovran {

// temporal_motion_constrained_tile_sets(), clause D.2.30.
struct h265_nal_sei_temporal_motion_constrained_tile_sets {
    static constexpr unsigned int payload_type = 139;
    static constexpr const char* payload_name = "temporal_motion_constrained_tile_sets";

    struct tile_set_t {
        unsigned int mcts_id = 0;            // ue(v)
        bool display_tile_set_flag = false;  // u(1), when limited_tile_set_display_flag

        // Rectangles of tiles; the arrays have num_tile_rects_in_set_minus1 + 1 entries.
        unsigned int num_tile_rects_in_set_minus1 = 0;    // ue(v)
        std::vector<unsigned int> top_left_tile_idx;      // ue(v), in tile raster scan
        std::vector<unsigned int> bottom_right_tile_idx;  // ue(v), likewise

        // Unless mc_all_tiles_exact_sample_value_match_flag.
        bool mc_exact_sample_value_match_flag = false;  // u(1)

        bool mcts_tier_level_idc_present_flag = false;  // u(1)
        bool mcts_tier_flag = false;                    // u(1), when that is set
        unsigned char mcts_level_idc = 0;               // u(8), likewise
    };

    bool mc_all_tiles_exact_sample_value_match_flag = false;  // u(1)
    bool each_tile_one_tile_set_flag = false;                 // u(1)

    // Unless each_tile_one_tile_set_flag.
    bool limited_tile_set_display_flag = false;   // u(1)
    unsigned int num_sets_in_message_minus1 = 0;  // ue(v)
    std::vector<tile_set_t> tile_sets;            // num_sets_in_message_minus1 + 1 entries

    // Otherwise.
    bool max_mcs_tier_level_idc_present_flag = false;  // u(1)
    bool mcts_max_tier_flag = false;                   // u(1), when that is set
    unsigned char mcts_max_level_idc = 0;              // u(8), likewise

    bool valid = false;  // the latest parse succeeded

    // Reads one payload up to its last element, in a record that is reset first. False, with
    // `valid` false: there are more tile sets than 256, or more of them or of their rectangles than
    // the data can hold; the data ends; or there is no memory.
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_fault* fault = nullptr);
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_trace& trace,
                                   h265_fault* fault = nullptr);
};

}  // namespace kovran

#endif  // KOVRAN_H265_SEI_H265_NAL_SEI_TEMPORAL_MOTION_CONSTRAINED_TILE_SETS_H
