#ifndef KOVRAN_H2645_COMMON_H2645_COMMON_READ_XOSTYLESEI_VLU32_H
#define KOVRAN_H2645_COMMON_H2645_COMMON_READ_XOSTYLESEI_VLU32_H

#include <kovran/export.h>

namespace kovran {

// Reads payloadType or payloadSize of an SEI message, clause 7.3.5: 255 for each byte FF, plus the
// byte that ends the run. `p` moves past the bytes that were read, up to `end`. Sums above
// 0xFFFFFFFE give 0xFFFFFFFE; 0xFFFFFFFF means that the data ended within the run.
KOVRAN_API unsigned int h2645_common_read_xostylesei_vlu32(unsigned char*& p, unsigned char* end);

}  // namespace kovran

#endif  // KOVRAN_H2645_COMMON_H2645_COMMON_READ_XOSTYLESEI_VLU32_H
