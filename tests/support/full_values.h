#ifndef KOVRAN_TESTS_SUPPORT_FULL_VALUES_H
#define KOVRAN_TESTS_SUPPORT_FULL_VALUES_H

#include "support/syntax_values.h"

// Units in which every array of their records has entries.
namespace kovran::test {

// Two sub-layers, three layer sets, two HRD structures of three CPBs.
vps_values full_vps_values();

// Three sub-layers, scaling lists, sets of which one is predicted, long-term pictures, a VUI with
// HRD parameters.
sps_values full_sps_values();

// Tiles of several sizes, scaling lists.
pps_values full_pps_values();

// A B slice with a predicted set of its own, long-term pictures and both lists modified.
slice_values full_slice_values();

}  // namespace kovran::test

#endif  // KOVRAN_TESTS_SUPPORT_FULL_VALUES_H
