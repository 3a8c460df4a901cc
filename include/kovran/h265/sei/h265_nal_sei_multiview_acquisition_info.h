#ifndef KOVRAN_H265_SEI_H265_NAL_SEI_MULTIVIEW_ACQUISITION_INFO_H
#define KOVRAN_H265_SEI_H265_NAL_SEI_MULTIVIEW_ACQUISITION_INFO_H

#include <kovran/export.h>
#include <kovran/h2645_common/h2645_common_bitreader.h>
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_trace.h>
#include <kovran/h265/sei/h265_float_value.h>

#include <array>
#include <vector>

namespace kovran {

// multiview_acquisition_info(), clause G.14.2. No stream has been seen that has it in a nesting
// message without a list of layers; it is read there with a single view.
struct h265_nal_sei_multiview_acquisition_info {
    static constexpr unsigned int payload_type = 179;
    static constexpr const char* payload_name = "multiview_acquisition_info";

    // Of each value: sign u(1), exponent u(6), mantissa u(v).
    struct intrinsic_params_t {
        h265_float_value focal_length_x;  // in luma samples, like the others
        h265_float_value focal_length_y;
        h265_float_value principal_point_x;
        h265_float_value principal_point_y;
        h265_float_value skew_factor;
    };
    struct extrinsic_params_t {
        std::array<std::array<h265_float_value, 3>, 3> r;  // rotation, by row and column
        std::array<h265_float_value, 3> t;  // translation, in the stream after each row of r
    };

    bool intrinsic_param_flag = false;  // u(1)
    bool extrinsic_param_flag = false;  // u(1)

    // When intrinsic_param_flag: an entry for each view, or one for all when they are equal.
    bool intrinsic_params_equal_flag = false;  // u(1)
    unsigned int prec_focal_length = 0;        // ue(v)
    unsigned int prec_principal_point = 0;     // ue(v)
    unsigned int prec_skew_factor = 0;         // ue(v)
    std::vector<intrinsic_params_t> intrinsic_params;

    // When extrinsic_param_flag: an entry for each view.
    unsigned int prec_rotation_param = 0;     // ue(v)
    unsigned int prec_translation_param = 0;  // ue(v)
    std::vector<extrinsic_params_t> extrinsic_params;

    bool valid = false;  // the latest parse succeeded

    // Reads one payload up to its last element, in a record that is reset first. `views` is
    // numViews: how many layers the nesting message around it names; 1 outside of one. False, with
    // `valid` false: a precision is above 31, there are more views than the data can hold, the data
    // ends, or there is no memory.
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, unsigned int views,
                                   h265_fault* fault = nullptr);
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, unsigned int views,
                                   h265_trace& trace, h265_fault* fault = nullptr);
};

}  // namespace kovran

#endif  // KOVRAN_H265_SEI_H265_NAL_SEI_MULTIVIEW_ACQUISITION_INFO_H
