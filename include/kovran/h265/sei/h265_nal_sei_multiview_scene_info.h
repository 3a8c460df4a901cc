#ifndef KOVRAN_H265_SEI_H265_NAL_SEI_MULTIVIEW_SCENE_INFO_H
#define KOVRAN_H265_SEI_H265_NAL_SEI_MULTIVIEW_SCENE_INFO_H

#include <kovran/export.h>
#include <kovran/h2645_common/h2645_common_bitreader.h>
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_trace.h>

namespace kovran {

// multiview_scene_info(), clause G.14.2.
struct h265_nal_sei_multiview_scene_info {
    static constexpr unsigned int payload_type = 178;
    static constexpr const char* payload_name = "multiview_scene_info";

    int min_disparity = 0;                 // se(v), in luma samples
    unsigned int max_disparity_range = 0;  // ue(v), likewise

    bool valid = false;  // the latest parse succeeded

    // Reads one payload up to its last element, in a record that is reset first. False, with
    // `valid` false: the data ends.
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_fault* fault = nullptr);
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_trace& trace,
                                   h265_fault* fault = nullptr);
};

}  // namespace kovran

#endif  // KOVRAN_H265_SEI_H265_NAL_SEI_MULTIVIEW_SCENE_INFO_H
