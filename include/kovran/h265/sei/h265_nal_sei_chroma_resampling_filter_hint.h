#ifndef KOVRAN_H265_SEI_H265_NAL_SEI_CHROMA_RESAMPLING_FILTER_HINT_H
#define KOVRAN_H265_SEI_H265_NAL_SEI_CHROMA_RESAMPLING_FILTER_HINT_H

#include <kovran/export.h>
#include <kovran/h2645_common/h2645_common_bitreader.h>
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_trace.h>

#include <vector>

namespace kovran {

// chroma_resampling_filter_hint(), clause D.2.31.
struct h265_nal_sei_chroma_resampling_filter_hint {
    static constexpr unsigned int payload_type = 140;
    static constexpr const char* payload_name = "chroma_resampling_filter_hint";

    struct vertical_filter_t {
        unsigned int ver_tap_length_minus1 = 0;  // ue(v)
        std::vector<int> ver_filter_coeff;       // se(v), ver_tap_length_minus1 + 1 entries
    };

    struct horizontal_filter_t {
        unsigned int hor_tap_length_minus1 = 0;  // ue(v)
        std::vector<int> hor_filter_coeff;       // se(v), hor_tap_length_minus1 + 1 entries
    };

    unsigned char ver_chroma_filter_idc = 0;           // u(8)
    unsigned char hor_chroma_filter_idc = 0;           // u(8)
    bool ver_filtering_field_processing_flag = false;  // u(1)

    unsigned int target_format_idc = 0;  // ue(v), when either idc above is 1

    // When ver_chroma_filter_idc is 1.
    unsigned int num_vertical_filters = 0;            // ue(v)
    std::vector<vertical_filter_t> vertical_filters;  // num_vertical_filters entries

    // When hor_chroma_filter_idc is 1.
    unsigned int num_horizontal_filters = 0;              // ue(v)
    std::vector<horizontal_filter_t> horizontal_filters;  // num_horizontal_filters entries

    bool valid = false;  // the latest parse succeeded

    // Reads one payload up to its last element, in a record that is reset first. False, with
    // `valid` false: there are more filters or taps than the data can hold; the data ends; or there
    // is no memory.
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_fault* fault = nullptr);
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_trace& trace,
                                   h265_fault* fault = nullptr);
};

}  // namespace kovran

#endif  // KOVRAN_H265_SEI_H265_NAL_SEI_CHROMA_RESAMPLING_FILTER_HINT_H
