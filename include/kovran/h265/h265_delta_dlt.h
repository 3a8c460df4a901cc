#ifndef KOVRAN_H265_H265_DELTA_DLT_H
#define KOVRAN_H265_H265_DELTA_DLT_H

#include <vector>

namespace kovran {

// delta_dlt(), clause I.7.3.2.3.8, as h265_nal_pps::parse_standard() reads it. The widths are those
// of the depth values, or follow from the elements before.
struct h265_delta_dlt {
    unsigned int num_val_delta_dlt = 0;  // u(v)
    unsigned int max_diff = 0;           // u(v), when num_val_delta_dlt is more than 1
    int min_diff_minus1 = 0;             // u(v), when it is more than 2 and max_diff is not 0,
                                         // or max_diff - 1
    unsigned int delta_dlt_val0 = 0;     // u(v), when num_val_delta_dlt is not 0
    // u(v), when max_diff is more than min_diff_minus1 + 1: num_val_delta_dlt entries, of which the
    // standard has none with index 0; that one is 0.
    std::vector<unsigned int> delta_val_diff_minus_min;
};

}  // namespace kovran

#endif  // KOVRAN_H265_H265_DELTA_DLT_H
