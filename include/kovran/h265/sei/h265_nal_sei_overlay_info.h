#ifndef KOVRAN_H265_SEI_H265_NAL_SEI_OVERLAY_INFO_H
#define KOVRAN_H265_SEI_H265_NAL_SEI_OVERLAY_INFO_H

#include <kovran/export.h>
#include <kovran/h2645_common/h2645_common_bitreader.h>
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_trace.h>

#include <vector>

namespace kovran {

// overlay_info(), clause F.14.2. Texts are UTF-8, without the zero byte that ends them.
struct h265_nal_sei_overlay_info {
    static constexpr unsigned int payload_type = 166;
    static constexpr const char* payload_name = "overlay_info";

    bool overlay_info_cancel_flag = false;  // u(1)

    // Unless overlay_info_cancel_flag.
    unsigned int overlay_content_aux_id_minus128 = 0;            // ue(v)
    unsigned int overlay_label_aux_id_minus128 = 0;              // ue(v)
    unsigned int overlay_alpha_aux_id_minus128 = 0;              // ue(v)
    unsigned int overlay_element_label_value_length_minus8 = 0;  // ue(v)
    unsigned int num_overlays_minus1 = 0;                        // ue(v)

    struct overlay_t {
        unsigned int overlay_idx = 0;                // ue(v)
        bool language_overlay_present_flag = false;  // u(1)
        unsigned char overlay_content_layer_id = 0;  // u(6)
        bool overlay_label_present_flag = false;     // u(1)
        unsigned char overlay_label_layer_id = 0;    // u(6), when overlay_label_present_flag
        bool overlay_alpha_present_flag = false;     // u(1)
        unsigned char overlay_alpha_layer_id = 0;    // u(6), when overlay_alpha_present_flag

        // When overlay_label_present_flag. The arrays, and that of names below, have
        // num_overlay_elements_minus1 + 1 entries.
        unsigned int num_overlay_elements_minus1 = 0;         // ue(v)
        std::vector<unsigned int> overlay_element_label_min;  // u(v)
        std::vector<unsigned int> overlay_element_label_max;  // u(v)

        // In the stream behind the elements above of all overlays.
        std::vector<unsigned char> overlay_language;  // st(v), when language_overlay_present_flag
        std::vector<unsigned char> overlay_name;      // st(v)
        std::vector<std::vector<unsigned char>> overlay_element_name;  // st(v)
    };
    std::vector<overlay_t> overlays;  // num_overlays_minus1 + 1 entries

    bool overlay_info_persistence_flag = false;  // u(1)

    bool valid = false;  // the latest parse succeeded

    // Reads one payload up to its last element, in a record that is reset first. False, with
    // `valid` false: labels have more than 32 bits; there are more than 16 overlays, or more
    // elements of one than the data can hold; a text has no zero byte behind it; the data ends; or
    // there is no memory.
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_fault* fault = nullptr);
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_trace& trace,
                                   h265_fault* fault = nullptr);
};

}  // namespace kovran

#endif  // KOVRAN_H265_SEI_H265_NAL_SEI_OVERLAY_INFO_H
