#ifndef KOVRAN_H265_SEI_H265_NAL_SEI_MCTS_EXTRACTION_INFO_SETS_H
#define KOVRAN_H265_SEI_H265_NAL_SEI_MCTS_EXTRACTION_INFO_SETS_H

#include <kovran/export.h>
#include <kovran/h2645_common/h2645_common_bitreader.h>
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_nal_sps.h>
#include <kovran/h265/h265_trace.h>

#include <vector>

namespace kovran {

// mcts_extraction_info_sets(), clause D.2.43. No stream with slice_reordering_enabled_flag has been
// seen; its addresses are read with the width of slice_segment_address.
struct h265_nal_sei_mcts_extraction_info_sets {
    static constexpr unsigned int payload_type = 158;
    static constexpr const char* payload_name = "mcts_extraction_info_sets";

    unsigned int num_info_sets_minus1 = 0;  // ue(v)

    // Parameter sets for streams that have the tiles of a motion-constrained tile set alone.
    struct info_set_t {
        unsigned int num_mcts_sets_minus1 = 0;  // ue(v)
        std::vector<unsigned int>
            num_mcts_in_set_minus1;  // ue(v), num_mcts_sets_minus1 + 1 entries
        std::vector<std::vector<unsigned int>> idx_of_mcts_in_set;  // ue(v)

        bool slice_reordering_enabled_flag = false;  // u(1)
        unsigned int num_slice_segments_minus1 = 0;  // ue(v), when slice_reordering_enabled_flag
        std::vector<unsigned int> output_slice_segment_address;  // u(v), likewise

        unsigned int num_vps_in_info_set_minus1 = 0;           // ue(v)
        std::vector<unsigned int> vps_rbsp_data_length;        // ue(v), in bytes
        unsigned int num_sps_in_info_set_minus1 = 0;           // ue(v)
        std::vector<unsigned int> sps_rbsp_data_length;        // ue(v)
        unsigned int num_pps_in_info_set_minus1 = 0;           // ue(v)
        std::vector<unsigned char> pps_nuh_temporal_id_plus1;  // u(3)
        std::vector<unsigned int> pps_rbsp_data_length;        // ue(v)

        // b(8): the RBSP of each.
        std::vector<std::vector<unsigned char>> vps_rbsp_data_byte;
        std::vector<std::vector<unsigned char>> sps_rbsp_data_byte;
        std::vector<std::vector<unsigned char>> pps_rbsp_data_byte;
    };
    std::vector<info_set_t> info_sets;  // num_info_sets_minus1 + 1 entries

    bool valid = false;  // the latest parse succeeded

    // Reads one payload up to its last element, in a record that is reset first. `sps` gives the
    // picture size, which slice addresses depend on. False, with `valid` false: there is more of
    // anything than the data can hold; there are more slice segments than coding tree blocks in a
    // picture, or the picture has none; the data ends; or there is no memory.
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, const h265_nal_sps& sps,
                                   h265_fault* fault = nullptr);
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, const h265_nal_sps& sps,
                                   h265_trace& trace, h265_fault* fault = nullptr);
};

}  // namespace kovran

#endif  // KOVRAN_H265_SEI_H265_NAL_SEI_MCTS_EXTRACTION_INFO_SETS_H
