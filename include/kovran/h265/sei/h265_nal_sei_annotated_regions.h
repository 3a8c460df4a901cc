#ifndef KOVRAN_H265_SEI_H265_NAL_SEI_ANNOTATED_REGIONS_H
#define KOVRAN_H265_SEI_H265_NAL_SEI_ANNOTATED_REGIONS_H

#include <kovran/export.h>
#include <kovran/h2645_common/h2645_common_bitreader.h>
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_trace.h>

#include <vector>

namespace kovran {

// annotated_regions(), clause D.2.47: what stands in a region of the picture, as changes to what
// earlier messages said. Texts are UTF-8, without the zero byte that ends them.
struct h265_nal_sei_annotated_regions {
    static constexpr unsigned int payload_type = 202;
    static constexpr const char* payload_name = "annotated_regions";

    struct label_update_t {
        unsigned int ar_label_idx = 0;        // ue(v)
        bool ar_label_cancel_flag = false;    // u(1)
        std::vector<unsigned char> ar_label;  // st(v), unless ar_label_cancel_flag
    };

    // ar_object_cancel_flag and ar_bounding_box_cancel_flag end an update. The box is in luma
    // samples.
    struct object_update_t {
        unsigned int ar_object_idx = 0;             // ue(v)
        bool ar_object_cancel_flag = false;         // u(1)
        bool ar_object_label_update_flag = false;   // u(1), when ar_object_label_present_flag
        unsigned int ar_object_label_idx = 0;       // ue(v), when ar_object_label_update_flag
        bool ar_bounding_box_update_flag = false;   // u(1)
        bool ar_bounding_box_cancel_flag = false;   // u(1), when ar_bounding_box_update_flag
        unsigned short ar_bounding_box_top = 0;     // u(16), likewise
        unsigned short ar_bounding_box_left = 0;    // u(16)
        unsigned short ar_bounding_box_width = 0;   // u(16)
        unsigned short ar_bounding_box_height = 0;  // u(16)
        // Each when the flag of the message says so.
        bool ar_partial_object_flag = false;      // u(1)
        unsigned short ar_object_confidence = 0;  // u(v)
    };

    bool ar_cancel_flag = false;  // u(1): nothing follows

    bool ar_not_optimized_for_viewing_flag = false;        // u(1)
    bool ar_true_motion_flag = false;                      // u(1)
    bool ar_occluded_object_flag = false;                  // u(1)
    bool ar_partial_object_flag_present_flag = false;      // u(1)
    bool ar_object_label_present_flag = false;             // u(1)
    bool ar_object_confidence_info_present_flag = false;   // u(1)
    unsigned char ar_object_confidence_length_minus1 = 0;  // u(4), when the flag above is set

    // When ar_object_label_present_flag.
    bool ar_object_label_language_present_flag = false;   // u(1)
    std::vector<unsigned char> ar_object_label_language;  // st(v), when the flag above is set
    unsigned int ar_num_label_updates = 0;                // ue(v)
    std::vector<label_update_t> label_updates;            // ar_num_label_updates entries

    unsigned int ar_num_object_updates = 0;       // ue(v)
    std::vector<object_update_t> object_updates;  // ar_num_object_updates entries

    bool valid = false;  // the latest parse succeeded

    // Reads one payload up to its last element, in a record that is reset first. False, with
    // `valid` false: there are more label or object updates than 255 or than the data can hold, a
    // text has no zero byte behind it, the data ends, or there is no memory.
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_fault* fault = nullptr);
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_trace& trace,
                                   h265_fault* fault = nullptr);
};

}  // namespace kovran

#endif  // KOVRAN_H265_SEI_H265_NAL_SEI_ANNOTATED_REGIONS_H
