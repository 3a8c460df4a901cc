#include "units/unit_selection.h"

#include "process/failure.h"

#include <fmt/format.h>

namespace kovran::inspect {
namespace {

std::string units_text(std::uint64_t count) {
    if (count == 0) {
        return "the stream has no NAL units";
    }
    return count == 1 ? "the stream has 1 NAL unit, 0"
                      : fmt::format("the stream has {} NAL units, 0 to {}", count, count - 1);
}

std::string layers_text(const std::bitset<layer_count>& layers) {
    if (layers.none()) {
        return units_text(0);
    }
    std::string numbers;
    std::size_t left = layers.count();
    for (unsigned int layer = 0; layer < layer_count; ++layer) {
        if (layers.test(layer)) {
            const char* const separator = numbers.empty() ? "" : left == 1 ? " and " : ", ";
            numbers += fmt::format("{}{}", separator, layer);
            --left;
        }
    }
    return fmt::format("the stream has {} {}", layers.count() == 1 ? "layer" : "layers", numbers);
}

}  // namespace

bool unit_selector::selects(const nal_unit& unit) {
    if (!unit.readable) {
        return false;
    }
    ++units_;
    layers_.set(unit.header.nuh_layer_id);
    nal_seen_ = nal_seen_ || selection_.nal == unit.index;
    const bool selected =
        selection_.types.test(unit.header.nal_unit_type) &&
        selection_.layer.value_or(unit.header.nuh_layer_id) == unit.header.nuh_layer_id &&
        selection_.nal.value_or(unit.index) == unit.index;
    selected_ += selected ? 1 : 0;
    return selected;
}

void unit_selector::require_match(const std::string& stream_name) const {
    if (is_done()) {
        return;
    }
    if (selection_.nal) {
        throw failure(fmt::format("{}: there is no NAL unit {}; {}", stream_name, *selection_.nal,
                                  units_text(units_)));
    }
    if (selection_.layer && !layers_.test(*selection_.layer)) {
        throw failure(fmt::format("{}: there is no NAL unit of layer {}; {}", stream_name,
                                  *selection_.layer, layers_text(layers_)));
    }
}

}  // namespace kovran::inspect
