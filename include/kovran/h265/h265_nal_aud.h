#ifndef KOVRAN_H265_H265_NAL_AUD_H
#define KOVRAN_H265_H265_NAL_AUD_H

#include <kovran/export.h>
#include <kovran/h2645_common/h2645_common_bitreader.h>
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_trace.h>

namespace kovran {

// access_unit_delimiter_rbsp(), clause 7.3.2.5.
struct h265_nal_aud {
    unsigned char pic_type = 0;  // u(3)

    bool valid = false;  // the latest parse succeeded

    // Reads one RBSP; `reader` stands right after the two NAL unit header bytes.
    // False when the trailing bits are malformed; pic_type is stored even then.
    KOVRAN_API bool parse(h2645_common_bitreader& reader);
    KOVRAN_API bool parse(h2645_common_bitreader& reader, h265_trace& trace,
                          h265_fault* fault = nullptr);

    // The same in a record that is reset first.
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_fault* fault = nullptr);
    KOVRAN_API bool parse_standard(h2645_common_bitreader& reader, h265_trace& trace,
                                   h265_fault* fault = nullptr);
};

}  // namespace kovran

#endif  // KOVRAN_H265_H265_NAL_AUD_H
