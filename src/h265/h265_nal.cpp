#include <kovran/h265/h265_nal.h>

#include <cstddef>
#include <iterator>

namespace kovran {
namespace {

// Several types share each of these, and so must their rows.
constexpr char reserved_irap[] = "Reserved IRAP VCL NAL unit type";
constexpr char reserved_non_irap[] = "Reserved non-IRAP VCL NAL unit types";

}  // namespace

// NOLINTBEGIN(bugprone-suspicious-missing-comma): two of the texts are longer than a line.
const char* const h265_nal_unit_type_str[41] = {
    "TRAIL_N, Coded slice segment of a non-TSA, non-STSA trailing picture, "
    "slice_segment_layer_rbsp()",
    "TRAIL_R, Coded slice segment of a non-TSA, non-STSA trailing picture, "
    "slice_segment_layer_rbsp()",
    "TSA_N, Coded slice segment of a TSA picture, slice_segment_layer_rbsp()",
    "TSA_R, Coded slice segment of a TSA picture, slice_segment_layer_rbsp()",
    "STSA_N, Coded slice segment of an STSA picture, slice_segment_layer_rbsp()",
    "STSA_R, Coded slice segment of an STSA picture, slice_segment_layer_rbsp()",
    "RADL_N, Coded slice segment of a RADL picture, slice_segment_layer_rbsp()",
    "RADL_R, Coded slice segment of a RADL picture, slice_segment_layer_rbsp()",
    "RASL_N, Coded slice segment of a RASL picture, slice_segment_layer_rbsp()",
    "RASL_R, Coded slice segment of a RASL picture, slice_segment_layer_rbsp()",
    "RSV_VCL_N10, Reserved non-IRAP SLNR VCL NAL unit types",
    "RSV_VCL_R11, Reserved non-IRAP sub-layer reference VCL NAL unit types",
    "RSV_VCL_N12, Reserved non-IRAP SLNR VCL NAL unit types",
    "RSV_VCL_R13, Reserved non-IRAP sub-layer reference VCL NAL unit types",
    "RSV_VCL_N14, Reserved non-IRAP SLNR VCL NAL unit types",
    "RSV_VCL_R15, Reserved non-IRAP sub-layer reference VCL NAL unit types",
    "BLA_W_LP, Coded slice segment of a BLA picture, slice_segment_layer_rbsp()",
    "BLA_W_RADL, Coded slice segment of a BLA picture, slice_segment_layer_rbsp()",
    "BLA_N_LP, Coded slice segment of a BLA picture, slice_segment_layer_rbsp()",
    "IDR_W_RADL, Coded slice segment of an IDR picture, slice_segment_layer_rbsp()",
    "IDR_N_LP, Coded slice segment of an IDR picture, slice_segment_layer_rbsp()",
    "CRA_NUT, Coded slice segment of a CRA picture, slice_segment_layer_rbsp()",
    reserved_irap,
    reserved_irap,
    reserved_non_irap,
    reserved_non_irap,
    reserved_non_irap,
    reserved_non_irap,
    reserved_non_irap,
    reserved_non_irap,
    reserved_non_irap,
    reserved_non_irap,
    "VPS_NUT, Video parameter set, video_parameter_set_rbsp()",
    "SPS_NUT, Sequence parameter set, seq_parameter_set_rbsp()",
    "PPS_NUT, Picture parameter set, pic_parameter_set_rbsp()",
    "AUD_NUT, Access unit delimiter, access_unit_delimiter_rbsp()",
    "EOS_NUT, End of sequence, end_of_seq_rbsp()",
    "EOB_NUT, End of bitstream, end_of_bitstream_rbsp()",
    "FD_NUT, Filler data, filler_data_rbsp()",
    "PREFIX_SEI_NUT, Supplemental enhancement information, sei_rbsp()",
    "SUFFIX_SEI_NUT, Supplemental enhancement information, sei_rbsp()",
};
// NOLINTEND(bugprone-suspicious-missing-comma)

const char* h265_nal_unit_type_to_str(h265_nal_unit_type t) {
    return t < std::size(h265_nal_unit_type_str) ? h265_nal_unit_type_str[t] : "";
}

void h265_nal::decode_header(unsigned short header) {
    const unsigned int bits = header;
    valid = (bits & 0x8000U) == 0;  // forbidden_zero_bit
    if (!valid) {
        return;
    }
    nal_unit_type = static_cast<h265_nal_unit_type>(bits >> 9);
    nuh_layer_id = static_cast<unsigned char>(bits >> 3 & 63U);
    nuh_temporal_id_plus1 = static_cast<unsigned char>(bits & 7U);
}

unsigned int h265_nal::encode_header() const {
    if (!valid) {
        return 0xFFFFFFFF;
    }
    return static_cast<unsigned int>(nal_unit_type) << 9 |
           static_cast<unsigned int>(nuh_layer_id) << 3 | nuh_temporal_id_plus1;
}

}  // namespace kovran
