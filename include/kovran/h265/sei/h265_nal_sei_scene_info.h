#ifndef KOVRAN_H265_SEI_H265_NAL_SEI_SCENE_INFO_H
#define KOVRAN_H265_SEI_H265_NAL_SEI_SCENE_INFO_H

#include <kovran/export.h>
#include <kovran/h2645_common/h2645_common_bitreader.h>
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_trace.h>

namespace kovran {

// scene_info(), clause D.2.9.
struct h265_nal_sei_scene_info {
    static constexpr unsigned int payload_type = 9;
    static constexpr const char* payload_name = "scene_info";

    bool scene_info_present_flag =
        false;  // u(1): the pictures from here on belong to a known scene

    // When scene_info_present_flag.
    bool prev_scene_id_valid_flag = false;   // u(1): the scene before had the identifier it has now
    unsigned int scene_id = 0;               // ue(v)
    unsigned int scene_transition_type = 0;  // ue(v): 0 none, 1 fade to black, 2 fade from black,
                                             // 3 other, 4 dissolve, 5 wipe, 6 other mixture
    unsigned int second_scene_id = 0;        // ue(v), when scene_transition_type is above 3

    bool valid = false;  // the latest parse succeeded

    // Reads one payload up to its last element, in a record that is reset first. False, with
    // `valid` false: the data ends.
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_fault* fault = nullptr);
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_trace& trace,
                                   h265_fault* fault = nullptr);
};

}  // namespace kovran

#endif  // KOVRAN_H265_SEI_H265_NAL_SEI_SCENE_INFO_H
