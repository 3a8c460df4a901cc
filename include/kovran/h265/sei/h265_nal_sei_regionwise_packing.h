#ifndef KOVRAN_H265_SEI_H265_NAL_SEI_REGIONWISE_PACKING_H
#define KOVRAN_H265_SEI_H265_NAL_SEI_REGIONWISE_PACKING_H

#include <kovran/export.h>
#include <kovran/h2645_common/h2645_common_bitreader.h>
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_trace.h>

#include <array>
#include <vector>

namespace kovran {

// regionwise_packing(), clause D.2.41.
struct h265_nal_sei_regionwise_packing {
    static constexpr unsigned int payload_type = 155;
    static constexpr const char* payload_name = "regionwise_packing";

    bool rwp_cancel_flag = false;  // u(1)

    // Unless rwp_cancel_flag. All sizes and positions are in samples of the pictures that they are
    // in.
    bool rwp_persistence_flag = false;               // u(1)
    bool constituent_picture_matching_flag = false;  // u(1)
    unsigned char num_packed_regions = 0;            // u(8)
    unsigned int proj_picture_width = 0;             // u(32)
    unsigned int proj_picture_height = 0;            // u(32)
    unsigned short packed_picture_width = 0;         // u(16)
    unsigned short packed_picture_height = 0;        // u(16)

    // Where a region of the projected picture is in the packed one.
    struct packed_region_t {
        unsigned char rwp_transform_type = 0;     // u(3)
        bool rwp_guard_band_flag = false;         // u(1)
        unsigned int proj_region_width = 0;       // u(32)
        unsigned int proj_region_height = 0;      // u(32)
        unsigned int proj_region_top = 0;         // u(32)
        unsigned int proj_region_left = 0;        // u(32)
        unsigned short packed_region_width = 0;   // u(16)
        unsigned short packed_region_height = 0;  // u(16)
        unsigned short packed_region_top = 0;     // u(16)
        unsigned short packed_region_left = 0;    // u(16)

        // When rwp_guard_band_flag.
        unsigned char rwp_left_guard_band_width = 0;         // u(8)
        unsigned char rwp_right_guard_band_width = 0;        // u(8)
        unsigned char rwp_top_guard_band_height = 0;         // u(8)
        unsigned char rwp_bottom_guard_band_height = 0;      // u(8)
        bool rwp_guard_band_not_used_for_pred_flag = false;  // u(1)
        std::array<unsigned char, 4> rwp_guard_band_type{};  // u(3)
    };
    std::vector<packed_region_t> packed_regions;  // num_packed_regions entries

    bool valid = false;  // the latest parse succeeded

    // Reads one payload up to its last element, in a record that is reset first. False, with
    // `valid` false: there are more regions than the data can hold; the data ends; or there is no
    // memory.
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_fault* fault = nullptr);
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_trace& trace,
                                   h265_fault* fault = nullptr);
};

}  // namespace kovran

#endif  // KOVRAN_H265_SEI_H265_NAL_SEI_REGIONWISE_PACKING_H
