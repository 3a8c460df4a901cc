#ifndef KOVRAN_H265_H265_NAL_AUD_H
#define KOVRAN_H265_H265_NAL_AUD_H

#include <kovran/export.h>
#include <kovran/h2645_common/h2645_common_bitreader.h>

namespace kovran {

// access_unit_delimiter_rbsp(), clause 7.3.2.5.
struct h265_nal_aud {
    unsigned char pic_type = 0;  // u(3)

    bool valid = false;  // the latest parse succeeded

    // Reads one RBSP; `reader` stands right after the two NAL unit header bytes.
    // False when the trailing bits are malformed; pic_type is stored even then.
    [[nodiscard]] KOVRAN_API bool parse(h2645_common_bitreader& reader);
};

}  // namespace kovran

#endif  // KOVRAN_H265_H265_NAL_AUD_H
