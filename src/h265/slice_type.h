#ifndef KOVRAN_SRC_H265_SLICE_TYPE_H
#define KOVRAN_SRC_H265_SLICE_TYPE_H

namespace kovran {

// slice_type, table 7-7.
enum slice_type : unsigned int { slice_type_b = 0, slice_type_p = 1, slice_type_i = 2 };

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_SLICE_TYPE_H
