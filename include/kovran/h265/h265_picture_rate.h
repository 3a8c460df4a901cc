#ifndef KOVRAN_H265_H265_PICTURE_RATE_H
#define KOVRAN_H265_H265_PICTURE_RATE_H

#include <kovran/export.h>
#include <kovran/h265/h265_nal_sps.h>
#include <kovran/h265/h265_nal_vps.h>

namespace kovran {

// Pictures in a second as a fraction, not reduced: time_scale / num_units_in_tick, clauses 7.4.3.1
// and E.3.1. Where field_seq_flag is set the pictures are fields.
struct h265_picture_rate {
    unsigned int time_scale = 0;
    unsigned int num_units_in_tick = 0;  // 0: not known

    [[nodiscard]] bool is_known() const { return num_units_in_tick != 0 && time_scale != 0; }
};

// From the VUI, else from the VPS, which may be null. Timing information with a 0 counts as none.
[[nodiscard]] KOVRAN_API h265_picture_rate h265_picture_rate_of(const h265_nal_sps& sps,
                                                                const h265_nal_vps* vps);

}  // namespace kovran

#endif  // KOVRAN_H265_H265_PICTURE_RATE_H
