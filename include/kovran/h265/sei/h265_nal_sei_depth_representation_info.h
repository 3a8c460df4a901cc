#ifndef KOVRAN_H265_SEI_H265_NAL_SEI_DEPTH_REPRESENTATION_INFO_H
#define KOVRAN_H265_SEI_H265_NAL_SEI_DEPTH_REPRESENTATION_INFO_H

#include <kovran/export.h>
#include <kovran/h2645_common/h2645_common_bitreader.h>
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_trace.h>
#include <kovran/h265/sei/h265_float_value.h>

#include <vector>

namespace kovran {

// depth_representation_info(), clause G.14.2. No stream with depth_nonlinear_representation_model
// has been seen; its entries are read as ue(v).
struct h265_nal_sei_depth_representation_info {
    static constexpr unsigned int payload_type = 177;
    static constexpr const char* payload_name = "depth_representation_info";

    bool z_near_flag = false;                    // u(1)
    bool z_far_flag = false;                     // u(1)
    bool d_min_flag = false;                     // u(1)
    bool d_max_flag = false;                     // u(1)
    unsigned int depth_representation_type = 0;  // ue(v)
    unsigned int disparity_ref_view_id = 0;      // ue(v), when d_min_flag or d_max_flag

    // depth_rep_info_element(), each when its flag is set: da_sign_flag u(1), da_exponent u(7),
    // da_mantissa_len_minus1 u(5), da_mantissa u(v).
    h265_float_value z_near;
    h265_float_value z_far;
    h265_float_value d_min;
    h265_float_value d_max;

    // When depth_representation_type is 3. The array has depth_nonlinear_representation_num_minus1
    // + 2 entries; entry 0 is not in the stream.
    unsigned int depth_nonlinear_representation_num_minus1 = 0;      // ue(v)
    std::vector<unsigned int> depth_nonlinear_representation_model;  // ue(v)

    bool valid = false;  // the latest parse succeeded

    // Reads one payload up to its last element, in a record that is reset first. False, with
    // `valid` false: there are more entries of depth_nonlinear_representation_model than the data
    // can hold, the data ends, or there is no memory.
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_fault* fault = nullptr);
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_trace& trace,
                                   h265_fault* fault = nullptr);

    // What a sample of the depth picture stands for, for display; "?" for a reserved type.
    [[nodiscard]] KOVRAN_API const char* depth_representation_type_to_str() const;
};

}  // namespace kovran

#endif  // KOVRAN_H265_SEI_H265_NAL_SEI_DEPTH_REPRESENTATION_INFO_H
