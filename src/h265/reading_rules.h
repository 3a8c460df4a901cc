#ifndef KOVRAN_SRC_H265_READING_RULES_H
#define KOVRAN_SRC_H265_READING_RULES_H

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
        walk.set(set.NumDeltaPocs, set.num_negative_pics + set.num_positive_pics);
    }
};

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_READING_RULES_H
