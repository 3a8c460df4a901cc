#ifndef KOVRAN_H2645_COMMON_H2645_COMMON_NALFMT_H
#define KOVRAN_H2645_COMMON_H2645_COMMON_NALFMT_H

namespace kovran {

// How NAL units are framed in a stream.
enum h2645_common_nalfmt : unsigned int {
    nalfmt_none = 0,      // no framing: nothing is found, nothing is written
    nalfmt_length8 = 1,   // a big-endian length of 1 byte before each unit
    nalfmt_length16 = 2,  // 2 bytes
    nalfmt_length24 = 3,  // 3 bytes
    nalfmt_length32 = 4,  // 4 bytes
    nalfmt_annex_b = 5,   // the byte stream format of Annex B: 00 00 01 before each unit
};

}  // namespace kovran

#endif  // KOVRAN_H2645_COMMON_H2645_COMMON_NALFMT_H
