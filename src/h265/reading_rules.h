#ifndef KOVRAN_SRC_H265_READING_RULES_H
#define KOVRAN_SRC_H265_READING_RULES_H

#include <algorithm>
#include <cstddef>

namespace kovran {

// The places where kovran reads otherwise than the standard says, on purpose. A description asks
// `Walker::rules` by name; docs/differences.md lists the same for hosts. What parse() goes by are
// these; hosts rely on them, so they do not change.
struct own_rules {
    // Bounds. Each is what a count may be at most, and takes the place of the standard's; values
    // that size no array have none at all.

    // Differs from clause 7.4.4: maxNumSubLayersMinus1 is 6 at most there.
    static constexpr unsigned int max_profile_tier_level_sub_layers = 128;
    // Differs from clause E.3.2: 7 sub-layers, 32 CPB specifications (cpb_cnt_minus1 of 31).
    static constexpr unsigned int max_hrd_sub_layers = 128;
    static constexpr unsigned int max_hrd_cpbs = 128;
    // Differs from clause 7.4.3.1: 1024 layer sets, and as many HRD structures.
    static constexpr unsigned int max_vps_layer_sets = 128;
    static constexpr unsigned int max_vps_hrd_parameters = 128;
    // Differs from clause 7.4.3.2.1: 64 sets, 32 pictures.
    static constexpr unsigned int max_short_term_ref_pic_sets = 128;
    static constexpr unsigned int max_long_term_ref_pics_sps = 128;
    // Differs from clause 7.4.8: sps_max_dec_pic_buffering_minus1 pictures, 15 at most, in both
    // directions together.
    static constexpr unsigned int max_pics_in_one_direction = 128;
    static constexpr unsigned int max_pics_in_reference_set = 127;
    // Differs from clause 7.4.3.3.1: as many as the picture has coding tree blocks, less one. Holds
    // only where widths and heights are coded, and there for the number less one.
    static constexpr unsigned int max_tile_columns_minus1 = 128;
    static constexpr unsigned int max_tile_rows_minus1 = 128;

    // Absent elements.

    // Differs from clause 7.4.4: the profile and the level of a sub-layer that has none in the
    // stream are not those of the layer above it; the host infers them.
    template <class Walker, class Layer>
    static void infer_absent_sub_layer(Walker&, Layer&) {}

    // Differs from clauses 7.4.3.1 and 7.4.3.2.1: without sub-layer ordering information only the
    // entry of the highest sub-layer is filled; the host infers the ones below.
    template <class Walker, class... Arrays>
    static void infer_ordering_info(Walker&, unsigned int, Arrays&...) {}

    // Differs from clause 7.4.3.1: the flag of the first HRD structure is not 1 but what the record
    // held, so that the first structure of a fresh record is read without common information. A
    // host that wants the standard's reading sets the entry before it parses.
    template <class Walker, class Flags>
    static void infer_first_cprms_present_flag(Walker&, Flags&) {}

    // Differs from clause E.3.2: where low_delay_hrd_flag is absent it keeps what the record held,
    // which decides whether cpb_cnt_minus1 is read.
    template <class Walker, class Flags>
    static void infer_low_delay_hrd_flag(Walker&, Flags&, unsigned int) {}

    // Has no counterpart in the standard: the record remembers that it once held an extended sample
    // aspect ratio.
    template <class Walker, class Vui>
    static void end_extended_sar(Walker&, Vui&) {}

    // Predicted sets.

    // Differs from clause 7.4.8: a predicted set ends without pictures. Equations 7-61 and 7-62 are
    // left to the host, and a set that is predicted from this one has one flag pair to read.
    template <class Walker, class Set>
    static void end_predicted_set(Walker& walk, Set& set) {
        walk.assign(set.NumDeltaPocs, set.num_negative_pics + set.num_positive_pics);
    }

    // Slice segment headers.

    // Differs from clauses 7.4.7.1 and 7.4.7.2, where it is Ceil(Log2(count)): the number of binary
    // digits of a count that is not 0, one more when the count is a power of two.
    static unsigned char index_width(unsigned int count) {
        unsigned char digits = 0;
        for (; count != 0; count >>= 1) {
            ++digits;
        }
        return digits;
    }

    // Differs from clause 7.4.7.1, where the flag is 0 unless it is read: in the first segment of a
    // picture it is what the record held.
    template <class Slice>
    static bool is_dependent(const Slice& slice) {
        return slice.dependent_slice_segment_flag;
    }

    // Differs from clause 7.3.6.1: where the SPS has no long-term candidates, a slice cannot have
    // long-term pictures of its own.
    template <class Sps>
    static bool can_read_long_term_pics(const Sps& sps) {
        return sps.num_long_term_ref_pics_sps != 0;
    }

    // Differs from clause 7.3.6.1: not read unless long-term pictures are.
    template <class Sps>
    static bool has_temporal_mvp_flag(const Sps& sps) {
        return sps.long_term_ref_pics_present_flag && sps.sps_temporal_mvp_enabled_flag;
    }

    // Differs from equation 7-55: the flags of the SPS are counted by the number of the long-term
    // entry, for entries that the slice itself codes as well as for those that it takes from the
    // SPS.
    template <class Slice, class Sps>
    static unsigned int count_long_term_pics(const Slice& slice, const Sps& sps) {
        const auto& flags = sps.used_by_curr_pic_lt_sps_flag;
        const std::size_t entries = slice.num_long_term_sps + slice.num_long_term_pics;
        return static_cast<unsigned int>(std::count(
            flags.begin(),
            flags.begin() + static_cast<std::ptrdiff_t>(std::min(entries, flags.size())), true));
    }

    // SEI messages.

    // Differs from clause D.2.1, where it is 3 as among the prefix messages: the suffix payload
    // type that is called filler_payload.
    static constexpr unsigned int suffix_filler_payload = 0;

    // Differs from clause D.2.3, which asks for both flags.
    template <class Hrd>
    static bool has_decoding_unit_info(const Hrd& hrd) {
        return hrd.sub_pic_hrd_params_present_flag || hrd.sub_pic_cpb_params_in_pic_timing_sei_flag;
    }

    // Differs from clause D.3.2, where an absent irap_cpb_params_present_flag is 0: it is what the
    // record held.
    template <class Walker, class BufferingPeriod>
    static void infer_irap_cpb_params_present_flag(Walker&, BufferingPeriod&) {}

    // Differs from clause D.3.2, where it is that of the highest sub-layer: the CPB count of
    // sub-layer 0.
    template <class Hrd>
    static unsigned int cpb_cnt_minus1(const Hrd& hrd) {
        return hrd.cpb_cnt_minus1.front();
    }

    // Differs from clause D.3.3: as many as fit NumDecodingUnits, up to the picture's coding tree
    // blocks.
    static constexpr unsigned int max_decoding_units = 128;
    // Differs from clause D.3.21: 16 SPS identifiers, and layers up to 62. No VPS that was parsed
    // has more than 64 layers; a record that a host made can.
    static constexpr unsigned int max_active_sps_ids = 128;
    static constexpr unsigned int max_active_layers = 128;
};

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_READING_RULES_H
