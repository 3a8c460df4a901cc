#ifndef KOVRAN_H265_SEI_H265_NAL_SEI_FISHEYE_VIDEO_INFO_H
#define KOVRAN_H265_SEI_H265_NAL_SEI_FISHEYE_VIDEO_INFO_H

#include <kovran/export.h>
#include <kovran/h2645_common/h2645_common_bitreader.h>
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_trace.h>

#include <vector>

namespace kovran {

// fisheye_video_info(), clause D.2.41.
struct h265_nal_sei_fisheye_video_info {
    static constexpr unsigned int payload_type = 152;
    static constexpr const char* payload_name = "fisheye_video_info";

    bool fisheye_cancel_flag = false;  // u(1)

    // Unless fisheye_cancel_flag.
    bool fisheye_persistence_flag = false;              // u(1)
    unsigned char fisheye_view_dimension_idc = 0;       // u(3)
    unsigned char fisheye_num_active_areas_minus1 = 0;  // u(8)

    // An image that a lens has made. Its circle, with centre and radii, is in units of 2^-16 luma
    // samples, its rectangle in luma samples. Angles are in units of 2^-16 degrees, offsets of the
    // camera in units of 2^-16 millimetres.
    struct active_area_t {
        unsigned int fisheye_circular_region_centre_x = 0;  // u(32)
        unsigned int fisheye_circular_region_centre_y = 0;  // u(32)
        unsigned int fisheye_rect_region_top = 0;           // u(32)
        unsigned int fisheye_rect_region_left = 0;          // u(32)
        unsigned int fisheye_rect_region_width = 0;         // u(32)
        unsigned int fisheye_rect_region_height = 0;        // u(32)
        unsigned int fisheye_circular_region_radius = 0;    // u(32)
        unsigned int fisheye_scene_radius = 0;              // u(32)
        int fisheye_camera_centre_azimuth = 0;              // i(32)
        int fisheye_camera_centre_elevation = 0;            // i(32)
        int fisheye_camera_centre_tilt = 0;                 // i(32)
        unsigned int fisheye_camera_centre_offset_x = 0;    // u(32)
        unsigned int fisheye_camera_centre_offset_y = 0;    // u(32)
        unsigned int fisheye_camera_centre_offset_z = 0;    // u(32)
        unsigned int fisheye_field_of_view = 0;             // u(32)
        unsigned short fisheye_num_polynomial_coeffs = 0;   // u(16)
        std::vector<int> fisheye_polynomial_coeff;          // i(32), so many entries
    };
    std::vector<active_area_t> active_areas;  // fisheye_num_active_areas_minus1 + 1 entries

    bool valid = false;  // the latest parse succeeded

    // Reads one payload up to its last element, in a record that is reset first. False, with
    // `valid` false: there are more active areas, or more coefficients of a polynomial, than the
    // data can hold; the data ends; or there is no memory.
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_fault* fault = nullptr);
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_trace& trace,
                                   h265_fault* fault = nullptr);
};

}  // namespace kovran

#endif  // KOVRAN_H265_SEI_H265_NAL_SEI_FISHEYE_VIDEO_INFO_H
