#ifndef KOVRAN_H265_SEI_H265_NAL_SEI_FILM_GRAIN_CHARACTERISTICS_H
#define KOVRAN_H265_SEI_H265_NAL_SEI_FILM_GRAIN_CHARACTERISTICS_H

#include <kovran/export.h>
#include <kovran/h2645_common/h2645_common_bitreader.h>
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_trace.h>

#include <array>
#include <vector>

namespace kovran {

// film_grain_characteristics(), clause D.2.13.
struct h265_nal_sei_film_grain_characteristics {
    static constexpr unsigned int payload_type = 19;
    static constexpr const char* payload_name = "film_grain_characteristics";

    struct intensity_interval_t {
        unsigned char intensity_interval_lower_bound = 0;  // u(8)
        unsigned char intensity_interval_upper_bound = 0;  // u(8)
        std::array<int, 6> comp_model_value{};  // se(v), num_model_values_minus1 + 1 of them
    };

    struct component_t {
        unsigned char num_intensity_intervals_minus1 = 0;  // u(8)
        unsigned char num_model_values_minus1 = 0;         // u(3)

        // num_intensity_intervals_minus1 + 1 entries.
        std::vector<intensity_interval_t> intensity_intervals;
    };

    bool film_grain_characteristics_cancel_flag = false;  // u(1)

    // Unless film_grain_characteristics_cancel_flag.
    unsigned char film_grain_model_id = 0;                  // u(2)
    bool separate_colour_description_present_flag = false;  // u(1)

    // When separate_colour_description_present_flag; else those of the stream apply.
    unsigned char film_grain_bit_depth_luma_minus8 = 0;     // u(3)
    unsigned char film_grain_bit_depth_chroma_minus8 = 0;   // u(3)
    bool film_grain_full_range_flag = false;                // u(1)
    unsigned char film_grain_colour_primaries = 0;          // u(8)
    unsigned char film_grain_transfer_characteristics = 0;  // u(8)
    unsigned char film_grain_matrix_coeffs = 0;             // u(8)

    unsigned char blending_mode_id = 0;   // u(2)
    unsigned char log2_scale_factor = 0;  // u(4)

    // Y, Cb, Cr.
    std::array<bool, 3> comp_model_present_flag{};  // u(1)
    std::array<component_t, 3> components{};        // when comp_model_present_flag

    bool film_grain_characteristics_persistence_flag = false;  // u(1)

    bool valid = false;  // the latest parse succeeded

    // Reads one payload up to its last element, in a record that is reset first. False, with
    // `valid` false: a component has more than 6 model values, or more intervals than the data can
    // hold; the data ends; or there is no memory.
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_fault* fault = nullptr);
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_trace& trace,
                                   h265_fault* fault = nullptr);
};

// film_grain_model_id and blending_mode_id in words, for display: "frequency filtering" or
// "auto-regression", "additive" or "multiplicative", clause D.3.13; "" for values above 1, never
// null.
[[nodiscard]] KOVRAN_API const char* h265_nal_sei_film_grain_model_id_to_str(
    unsigned int film_grain_model_id);
[[nodiscard]] KOVRAN_API const char* h265_nal_sei_film_grain_blending_mode_id_to_str(
    unsigned int blending_mode_id);

}  // namespace kovran

#endif  // KOVRAN_H265_SEI_H265_NAL_SEI_FILM_GRAIN_CHARACTERISTICS_H
