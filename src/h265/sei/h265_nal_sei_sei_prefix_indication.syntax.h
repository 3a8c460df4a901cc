#ifndef KOVRAN_SRC_H265_SEI_H265_NAL_SEI_SEI_PREFIX_INDICATION_SYNTAX_H
#define KOVRAN_SRC_H265_SEI_H265_NAL_SEI_SEI_PREFIX_INDICATION_SYNTAX_H

#include <kovran/h265/sei/h265_nal_sei_sei_prefix_indication.h>

#include "h2645_common/element.h"
#include "h265/sei/in_entry.h"
#include "h265/sei/sei_context.h"
#include "h265/start_afresh.h"

#include <cstddef>

namespace kovran {

inline void start_afresh(h265_nal_sei_sei_prefix_indication& record) {
    auto& [prefix_sei_payload_type, num_sei_prefix_indications_minus1, sei_prefixes, valid] =
        record;
    start_all_afresh(prefix_sei_payload_type, num_sei_prefix_indications_minus1, valid);
    sei_prefixes.clear();
}

// sei_prefix_indication(), clause D.2.46. A prefix has three bytes or more.
template <class Walker>
[[nodiscard]] bool payload_syntax(Walker& walk, h265_nal_sei_sei_prefix_indication& indication,
                                  const sei_context& /*context*/) {
    walk.u(16, ELEMENT(indication, prefix_sei_payload_type));
    walk.u(8, ELEMENT(indication, num_sei_prefix_indications_minus1));
    const unsigned int prefixes = indication.num_sei_prefix_indications_minus1 + 1U;
    if (!walk.data_holds(ELEMENT(indication, num_sei_prefix_indications_minus1), prefixes,
                         /*fewest_bits=*/24) ||
        !walk.grow(prefixes, indication.sei_prefixes)) {
        return false;
    }
    for (unsigned int i = 0; i < prefixes; ++i) {
        auto& prefix = indication.sei_prefixes[i];
        const auto length_minus1 =
            in_entry(i, ELEMENT(prefix, num_bits_in_prefix_indication_minus1));
        walk.u(16, length_minus1);
        const std::size_t bits = prefix.num_bits_in_prefix_indication_minus1 + std::size_t{1};
        if (!walk.data_holds(length_minus1, bits, /*fewest_bits=*/1) ||
            !walk.grow(bits, prefix.sei_prefix_data_bit)) {
            return false;
        }
        const auto data_bits = in_entry(i, ELEMENT(prefix, sei_prefix_data_bit));
        for (std::size_t j = 0; j < bits; ++j) {
            walk.u(1, data_bits[j]);
        }
        walk.align("byte_alignment_bit_equal_to_one", 1);
    }
    return walk.finish(indication.valid);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_SEI_H265_NAL_SEI_SEI_PREFIX_INDICATION_SYNTAX_H
