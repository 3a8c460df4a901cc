#ifndef KOVRAN_TOOLS_INSPECT_ELEMENTS_STANDARD_TABLES_H
#define KOVRAN_TOOLS_INSPECT_ELEMENTS_STANDARD_TABLES_H

#include <cstdint>
#include <string>

namespace kovran::inspect {

// The meaning of coded values, in short words of this program's own; "reserved" for the others.

[[nodiscard]] std::string profile_name(std::int64_t profile_idc);              // clause A.3
[[nodiscard]] std::string tier_name(std::int64_t tier_flag);                   // clause A.4.1
[[nodiscard]] std::string level_name(std::int64_t level_idc);                  // "4.1"
[[nodiscard]] std::string chroma_format_name(std::int64_t chroma_format_idc);  // table 6-1
[[nodiscard]] std::string aspect_ratio_name(std::int64_t aspect_ratio_idc);    // table E.1
[[nodiscard]] std::string colour_primaries_name(std::int64_t value);           // table E.3
[[nodiscard]] std::string transfer_characteristics_name(std::int64_t value);   // table E.4
[[nodiscard]] std::string matrix_coeffs_name(std::int64_t value);              // table E.5
[[nodiscard]] std::string aud_pic_type_name(std::int64_t pic_type);            // table 7-2
[[nodiscard]] std::string motion_vector_resolution_name(std::int64_t value);   // clause 7.4.3.2.3

}  // namespace kovran::inspect

#endif  // KOVRAN_TOOLS_INSPECT_ELEMENTS_STANDARD_TABLES_H
