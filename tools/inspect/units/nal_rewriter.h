#ifndef KOVRAN_TOOLS_INSPECT_UNITS_NAL_REWRITER_H
#define KOVRAN_TOOLS_INSPECT_UNITS_NAL_REWRITER_H

#include <kovran/h265/h265_nal_reader.h>
#include <kovran/h265/h265_nal_writer.h>

#include "units/nal_unit.h"

#include <cstddef>
#include <vector>

namespace kovran::inspect {

// Frames and escapes NAL units anew.
class nal_rewriter {
public:
    // Annex B, when it is written from Annex B, keeps start codes of three bytes.
    nal_rewriter(h2645_common_nalfmt from, h2645_common_nalfmt to)
        : annex_b_to_itself_(from == to && to == nalfmt_annex_b), to_(to) {}

    // False when the unit is too long for the length before it.
    [[nodiscard]] bool rewrite(const nal_unit& unit);

    // The unit as rewritten last, framing included.
    [[nodiscard]] const unsigned char* data() const { return encoded_.data(); }
    [[nodiscard]] std::size_t size() const { return encoded_size_; }
    // Annex B takes a zero byte at a unit's end for one between units.
    [[nodiscard]] bool loses_zero_byte() const;
    // How long it is without framing, in formats that have a length.
    [[nodiscard]] std::size_t length_of(const nal_unit& unit);

private:
    [[nodiscard]] std::size_t encode(const nal_unit& unit, h2645_common_nalfmt format);
    void decode(const nal_unit& unit);

    bool annex_b_to_itself_;
    h2645_common_nalfmt to_;
    std::vector<unsigned char> rbsp_;
    std::size_t rbsp_size_ = 0;
    std::vector<unsigned char> encoded_;
    std::size_t encoded_size_ = 0;
};

}  // namespace kovran::inspect

#endif  // KOVRAN_TOOLS_INSPECT_UNITS_NAL_REWRITER_H
