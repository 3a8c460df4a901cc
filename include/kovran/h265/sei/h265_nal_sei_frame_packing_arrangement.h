#ifndef KOVRAN_H265_SEI_H265_NAL_SEI_FRAME_PACKING_ARRANGEMENT_H
#define KOVRAN_H265_SEI_H265_NAL_SEI_FRAME_PACKING_ARRANGEMENT_H

#include <kovran/export.h>
#include <kovran/h2645_common/h2645_common_bitreader.h>
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_trace.h>

namespace kovran {

// frame_packing_arrangement(), clause D.2.16.
struct h265_nal_sei_frame_packing_arrangement {
    static constexpr unsigned int payload_type = 45;
    static constexpr const char* payload_name = "frame_packing_arrangement";

    unsigned int frame_packing_arrangement_id = 0;       // ue(v)
    bool frame_packing_arrangement_cancel_flag = false;  // u(1)

    // Unless frame_packing_arrangement_cancel_flag.
    unsigned char frame_packing_arrangement_type = 0;  // u(7)
    bool quincunx_sampling_flag = false;               // u(1)
    unsigned char content_interpretation_type = 0;     // u(6)
    bool spatial_flipping_flag = false;                // u(1)
    bool frame0_flipped_flag = false;                  // u(1)
    bool field_views_flag = false;                     // u(1)
    bool current_frame_is_frame0_flag = false;         // u(1)
    bool frame0_self_contained_flag = false;           // u(1)
    bool frame1_self_contained_flag = false;           // u(1)

    // Unless quincunx_sampling_flag, or frame_packing_arrangement_type is 5. In units of one
    // sixteenth of the distance of samples.
    unsigned char frame0_grid_position_x = 0;  // u(4)
    unsigned char frame0_grid_position_y = 0;  // u(4)
    unsigned char frame1_grid_position_x = 0;  // u(4)
    unsigned char frame1_grid_position_y = 0;  // u(4)

    // Unless frame_packing_arrangement_cancel_flag.
    unsigned char frame_packing_arrangement_reserved_byte = 0;  // u(8)
    bool frame_packing_arrangement_persistence_flag = false;    // u(1)

    bool upsampled_aspect_ratio_flag = false;  // u(1)

    bool valid = false;  // the latest parse succeeded

    // Reads one payload up to its last element, in a record that is reset first. False, with
    // `valid` false: the data ends.
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_fault* fault = nullptr);
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_trace& trace,
                                   h265_fault* fault = nullptr);
};

// frame_packing_arrangement_type in words, for display: "side by side" for 3, "top and bottom" for
// 4, "temporal interleaving" for 5, clause D.3.16; "" for all others, which are reserved; never
// null.
[[nodiscard]] KOVRAN_API const char* h265_nal_sei_frame_packing_arrangement_type_to_str(
    unsigned int frame_packing_arrangement_type);

// content_interpretation_type in words, for display: "unspecified" for 0, "frame 0 is the left
// view" for 1, "frame 0 is the right view" for 2, clause D.3.16; "" for all others, never null.
[[nodiscard]] KOVRAN_API const char* h265_nal_sei_content_interpretation_type_to_str(
    unsigned int content_interpretation_type);

}  // namespace kovran

#endif  // KOVRAN_H265_SEI_H265_NAL_SEI_FRAME_PACKING_ARRANGEMENT_H
