#ifndef KOVRAN_H265_H265_SPS_RANGE_EXTENSION_H
#define KOVRAN_H265_H265_SPS_RANGE_EXTENSION_H

namespace kovran {

// sps_range_extension(), clause 7.3.2.2.2, as h265_nal_sps::parse_standard() reads it. Without the
// extension all flags are false.
struct h265_sps_range_extension {
    bool transform_skip_rotation_enabled_flag = false;     // u(1)
    bool transform_skip_context_enabled_flag = false;      // u(1)
    bool implicit_rdpcm_enabled_flag = false;              // u(1)
    bool explicit_rdpcm_enabled_flag = false;              // u(1)
    bool extended_precision_processing_flag = false;       // u(1)
    bool intra_smoothing_disabled_flag = false;            // u(1)
    bool high_precision_offsets_enabled_flag = false;      // u(1)
    bool persistent_rice_adaptation_enabled_flag = false;  // u(1)
    bool cabac_bypass_alignment_enabled_flag = false;      // u(1)
};

}  // namespace kovran

#endif  // KOVRAN_H265_H265_SPS_RANGE_EXTENSION_H
