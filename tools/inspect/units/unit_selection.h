#ifndef KOVRAN_TOOLS_INSPECT_UNITS_UNIT_SELECTION_H
#define KOVRAN_TOOLS_INSPECT_UNITS_UNIT_SELECTION_H

#include "units/nal_unit.h"
#include "units/type_name.h"

#include <bitset>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>

namespace kovran::inspect {

inline constexpr unsigned int layer_count = 64;

// Which NAL units of a stream are to be shown.
struct unit_selection {
    std::bitset<type_count> types = ~std::bitset<type_count>{};
    std::optional<unsigned int> layer;  // only units with this nuh_layer_id
    std::optional<std::uint64_t> nal;   // only the unit with this index
    std::uint64_t limit = std::numeric_limits<std::uint64_t>::max();  // units shown
};

// Selects among the units of one stream, in their order.
class unit_selector {
public:
    explicit unit_selector(const unit_selection& selection) : selection_(selection) {}

    // No unit that is still to come will be selected.
    [[nodiscard]] bool is_done() const { return nal_seen_ || selected_ >= selection_.limit; }
    // False for bytes that are no unit.
    [[nodiscard]] bool selects(const nal_unit& unit);

    // To be called at the end. That the stream has no unit of the index or layer asked for is a
    // failure.
    void require_match(const std::string& stream_name) const;

private:
    unit_selection selection_;
    std::uint64_t units_ = 0;
    std::uint64_t selected_ = 0;
    std::bitset<layer_count> layers_;
    bool nal_seen_ = false;
};

}  // namespace kovran::inspect

#endif  // KOVRAN_TOOLS_INSPECT_UNITS_UNIT_SELECTION_H
