#ifndef KOVRAN_H265_SEI_H265_NAL_SEI_ALTERNATIVE_DEPTH_INFO_H
#define KOVRAN_H265_SEI_H265_NAL_SEI_ALTERNATIVE_DEPTH_INFO_H

#include <kovran/export.h>
#include <kovran/h2645_common/h2645_common_bitreader.h>
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_trace.h>
#include <kovran/h265/sei/h265_float_value.h>

#include <array>
#include <vector>

namespace kovran {

// alternative_depth_info(), clause I.14.2. No stream with rotation, translation or a mantissa
// without bits has been seen; their mantissas are read with the length that those of focal lengths
// have.
struct h265_nal_sei_alternative_depth_info {
    static constexpr unsigned int payload_type = 181;
    static constexpr const char* payload_name = "alternative_depth_info";

    struct z_range_t {  // of each: sign u(1), exponent u(7), length of the mantissa u(5), mantissa
                        // u(v)
        h265_float_value z_near;
        h265_float_value z_far;
    };
    struct intrinsic_params_t {           // of each: sign u(1), exponent u(6), mantissa u(v)
        h265_float_value focal_length_x;  // in luma samples, like the others
        h265_float_value focal_length_y;
        h265_float_value principal_point_x;
        h265_float_value principal_point_y;
    };
    // Likewise, by row and column.
    using rotation_t = std::array<std::array<h265_float_value, 3>, 3>;

    bool alternative_depth_info_cancel_flag = false;  // u(1): nothing follows

    unsigned char depth_type = 0;  // u(2): 0 global view and depth, 1 warp map

    // When depth_type is 0.
    unsigned int num_constituent_views_gvd_minus1 = 0;  // ue(v)
    bool depth_present_gvd_flag = false;                // u(1)
    bool z_gvd_flag = false;                            // u(1)
    bool intrinsic_param_gvd_flag = false;              // u(1)
    bool rotation_gvd_flag = false;                     // u(1)
    bool translation_gvd_flag = false;                  // u(1)
    unsigned int prec_gvd_focal_length = 0;             // ue(v), when intrinsic_param_gvd_flag
    unsigned int prec_gvd_principal_point = 0;          // ue(v), when intrinsic_param_gvd_flag
    unsigned int prec_gvd_rotation_param = 0;           // ue(v), when rotation_gvd_flag
    unsigned int prec_gvd_translation_param = 0;        // ue(v), when translation_gvd_flag

    // Each when its flag is set: num_constituent_views_gvd_minus1 + 2 entries.
    std::vector<z_range_t> gvd_z;  // in the stream before the precisions
    std::vector<intrinsic_params_t> gvd_intrinsic_params;
    std::vector<rotation_t> gvd_r;
    std::vector<h265_float_value> gvd_t_x;

    // When depth_type is 1. Offsets have an integer part and one in units of 1/256.
    int min_offset_x_int = 0;                 // se(v)
    unsigned char min_offset_x_frac = 0;      // u(8)
    int max_offset_x_int = 0;                 // se(v)
    unsigned char max_offset_x_frac = 0;      // u(8)
    bool offset_y_present_flag = false;       // u(1)
    int min_offset_y_int = 0;                 // se(v), when offset_y_present_flag
    unsigned char min_offset_y_frac = 0;      // u(8), when offset_y_present_flag
    int max_offset_y_int = 0;                 // se(v), when offset_y_present_flag
    unsigned char max_offset_y_frac = 0;      // u(8), when offset_y_present_flag
    bool warp_map_size_present_flag = false;  // u(1)
    unsigned int warp_map_width_minus2 = 0;   // ue(v), when warp_map_size_present_flag
    unsigned int warp_map_height_minus2 = 0;  // ue(v), when warp_map_size_present_flag

    bool valid = false;  // the latest parse succeeded

    // Reads one payload up to its last element, in a record that is reset first. False, with
    // `valid` false: a precision is above 31, there are more views than the data can hold, the data
    // ends, or there is no memory.
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_fault* fault = nullptr);
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_trace& trace,
                                   h265_fault* fault = nullptr);

    // For display; "?" for a reserved type.
    [[nodiscard]] KOVRAN_API const char* depth_type_to_str() const;
};

}  // namespace kovran

#endif  // KOVRAN_H265_SEI_H265_NAL_SEI_ALTERNATIVE_DEPTH_INFO_H
