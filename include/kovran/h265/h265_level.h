#ifndef KOVRAN_H265_H265_LEVEL_H
#define KOVRAN_H265_H265_LEVEL_H

#include <kovran/export.h>
#include <kovran/h265/h265_nal_sps.h>
#include <kovran/h265/h265_profile_tier_level.h>

#include <cstdint>

namespace kovran {

// The limits of a level, tables A.8 and A.9. Those of a tier are for the Main tier and the High
// tier; MaxCPB and MaxBR are 0 where the level has no High tier.
struct h265_level_limits {
    unsigned char level_idc;  // 30 times the number of the level

    std::uint64_t MaxLumaPs;  // luma samples of a picture
    std::uint64_t MaxCPB[2];  // in CpbVclFactor or CpbNalFactor bits
    unsigned int MaxSliceSegmentsPerPicture;
    unsigned int MaxTileRows;
    unsigned int MaxTileCols;
    std::uint64_t MaxLumaSr;  // luma samples in a second
    std::uint64_t MaxBR[2];   // in BrVclFactor or BrNalFactor bits in a second
    unsigned int MinCrBase[2];
};

// Null for a value that is no level, for level 8.5 (255), which has no limits, and for level 6.3
// (189), whose limits are not in this table. The result stays for good.
[[nodiscard]] KOVRAN_API const h265_level_limits* h265_find_level_limits(unsigned char level_idc);

// The highest bit rates, and the largest coded picture buffers, in bits: MaxBR and MaxCPB times the
// factors of the profile, table A.10. Of all VCL NAL units, and of all NAL units.
struct h265_bit_limits {
    std::uint64_t vcl_bit_rate = 0;  // in a second, BrVclFactor * MaxBR
    std::uint64_t vcl_cpb_size = 0;  // CpbVclFactor * MaxCPB
    std::uint64_t nal_bit_rate = 0;  // in a second, BrNalFactor * MaxBR
    std::uint64_t nal_cpb_size = 0;  // CpbNalFactor * MaxCPB
};

// By the profile, tier and level of a layer, for the profiles with numbers 1 to 4; all 0 for the
// others, for a level without limits and for a tier that the level does not have.
[[nodiscard]] KOVRAN_API h265_bit_limits
h265_bit_limits_of(const h265_profile_tier_level::layer_t& layer);

// MaxDpbSize, clause A.4.2: pictures that the decoded picture buffer holds at most, of the size and
// at the general level of the SPS; 16 where h265_find_level_limits() has none, 6 (or 7, where the
// current picture may be a reference) for pictures that are too large for the level.
[[nodiscard]] KOVRAN_API unsigned int h265_max_dpb_size(const h265_nal_sps& sps);

}  // namespace kovran

#endif  // KOVRAN_H265_H265_LEVEL_H
