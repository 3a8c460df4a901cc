#ifndef KOVRAN_H265_H265_NAL_H
#define KOVRAN_H265_H265_NAL_H

#include <kovran/export.h>

namespace kovran {

// nal_unit_type, table 7-1. It may hold every value from 0 to 63; 41 and up have no name.
enum h265_nal_unit_type : unsigned int {
    TRAIL_N = 0,
    TRAIL_R = 1,
    TSA_N = 2,
    TSA_R = 3,
    STSA_N = 4,
    STSA_R = 5,
    RADL_N = 6,
    RADL_R = 7,
    RASL_N = 8,
    RASL_R = 9,
    RSV_VCL_N10 = 10,
    RSV_VCL_R11 = 11,
    RSV_VCL_N12 = 12,
    RSV_VCL_R13 = 13,
    RSV_VCL_N14 = 14,
    RSV_VCL_R15 = 15,
    BLA_W_LP = 16,
    BLA_W_RADL = 17,
    BLA_N_LP = 18,
    IDR_W_RADL = 19,
    IDR_N_LP = 20,
    CRA_NUT = 21,
    RSV_IRAP_VCL22 = 22,
    RSV_IRAP_VCL23 = 23,
    RSV_VCL24 = 24,
    RSV_VCL25 = 25,
    RSV_VCL26 = 26,
    RSV_VCL27 = 27,
    RSV_VCL28 = 28,
    RSV_VCL29 = 29,
    RSV_VCL30 = 30,
    RSV_VCL31 = 31,
    VPS_NUT = 32,
    SPS_NUT = 33,
    PPS_NUT = 34,
    AUD_NUT = 35,
    EOS_NUT = 36,
    EOB_NUT = 37,
    FD_NUT = 38,
    PREFIX_SEI_NUT = 39,
    SUFFIX_SEI_NUT = 40,
};

// nal_unit_header(), clause 7.3.1.2.
struct h265_nal {
    unsigned char nuh_layer_id = 0;           // u(6)
    unsigned char nuh_temporal_id_plus1 = 0;  // u(3); the standard forbids 0, which is not checked
    h265_nal_unit_type nal_unit_type = TRAIL_N;  // u(6)

    bool valid = false;  // the latest header had a forbidden_zero_bit of 0

    // Parses the header: `header` has the first byte of the NAL unit in bits 15 to 8, the second
    // one in bits 7 to 0. A forbidden_zero_bit of 1 makes `valid` false and leaves the other fields
    // unchanged.
    KOVRAN_API void decode_header(unsigned short header);

    // The header in 16 bits, or 0xFFFFFFFF when `valid` is false. The fields are not masked: a
    // value out of range runs into its neighbours.
    [[nodiscard]] KOVRAN_API unsigned int encode_header() const;
};

// The name and the content of each type from 0 to 40, for display. Types with equal text share one
// string.
extern KOVRAN_API const char* const h265_nal_unit_type_str[41];

// The row of that table, or "" for a type above 40; never null.
[[nodiscard]] KOVRAN_API const char* h265_nal_unit_type_to_str(h265_nal_unit_type t);

}  // namespace kovran

#endif  // KOVRAN_H265_H265_NAL_H
