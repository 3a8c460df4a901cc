#ifndef KOVRAN_H265_SEI_H265_NAL_SEI_INTER_LAYER_CONSTRAINED_TILE_SETS_H
#define KOVRAN_H265_SEI_H265_NAL_SEI_INTER_LAYER_CONSTRAINED_TILE_SETS_H

#include <kovran/export.h>
#include <kovran/h2645_common/h2645_common_bitreader.h>
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_trace.h>

#include <vector>

namespace kovran {

// inter_layer_constrained_tile_sets(), clause F.14.2.
struct h265_nal_sei_inter_layer_constrained_tile_sets {
    static constexpr unsigned int payload_type = 161;
    static constexpr const char* payload_name = "inter_layer_constrained_tile_sets";

    bool il_all_tiles_exact_sample_value_match_flag = false;  // u(1)
    bool il_one_tile_per_tile_set_flag = false;               // u(1)
    unsigned int il_num_sets_in_message_minus1 = 0;  // ue(v), unless il_one_tile_per_tile_set_flag
    bool skipped_tile_set_present_flag = false;      // u(1), when il_num_sets_in_message_minus1 > 0

    struct tile_set_t {
        unsigned int ilcts_id = 0;  // ue(v)

        // Rectangles of tiles, by two corners; il_num_tile_rects_in_set_minus1 + 1 entries.
        unsigned int il_num_tile_rects_in_set_minus1 = 0;    // ue(v)
        std::vector<unsigned int> il_top_left_tile_idx;      // ue(v)
        std::vector<unsigned int> il_bottom_right_tile_idx;  // ue(v)

        unsigned char ilc_idc = 0;  // u(2)

        // u(1), unless il_all_tiles_exact_sample_value_match_flag
        bool il_exact_sample_value_match_flag = false;
    };
    // il_num_sets_in_message_minus1 + 1 entries, or 1 less with skipped_tile_set_present_flag: the
    // tiles in none of them are the skipped set.
    std::vector<tile_set_t> tile_sets;

    unsigned char all_tiles_ilc_idc = 0;  // u(2), when il_one_tile_per_tile_set_flag

    bool valid = false;  // the latest parse succeeded

    // Reads one payload up to its last element, in a record that is reset first. False, with
    // `valid` false: there are more tile sets than 256, or more of them or of their rectangles than
    // the data can hold; the data ends; or there is no memory.
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_fault* fault = nullptr);
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_trace& trace,
                                   h265_fault* fault = nullptr);
};

}  // namespace kovran

#endif  // KOVRAN_H265_SEI_H265_NAL_SEI_INTER_LAYER_CONSTRAINED_TILE_SETS_H
