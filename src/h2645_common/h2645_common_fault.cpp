#include <kovran/h2645_common/h2645_common_fault.h>

#include <algorithm>

namespace kovran {
namespace {

std::string place_of(const h2645_common_fault& fault) {
    std::string text;
    const unsigned int structures = std::min(fault.structure_count, fault.most_structures);
    for (unsigned int i = 0; i < structures; ++i) {
        text += to_string(fault.structures[i]);
        text += '.';
    }
    if (*fault.element.name == '\0') {
        return text + "bit " + std::to_string(fault.first_bit);
    }
    return text + to_string(fault.element) + " at bit " + std::to_string(fault.first_bit);
}

std::string place_and_value_of(const h2645_common_fault& fault) {
    return place_of(fault) + " is " + std::to_string(fault.value);
}

std::string range_of(const h2645_common_fault& fault) {
    if (fault.lowest > fault.highest) {
        return "no value";
    }
    if (fault.lowest == fault.highest) {
        return std::to_string(fault.lowest);
    }
    return std::to_string(fault.lowest) + " to " + std::to_string(fault.highest);
}

std::string missing_set_of(const h2645_common_fault& fault) {
    constexpr unsigned int no_id = 0xFFFFFFFF;
    if (fault.parameter_set_id == no_id) {
        return std::string("no ") + fault.parameter_set + " is active";
    }
    std::string text = std::string(fault.parameter_set) + ' ' +
                       std::to_string(fault.parameter_set_id) + " is missing";
    if (*fault.element.name != '\0') {
        text += ", needed by " + place_of(fault);
    }
    return text;
}

}  // namespace

std::string to_string(const h2645_common_fault& fault) {
    using kind = h2645_common_fault_kind;
    switch (fault.kind) {
        case kind::none:
            break;
        case kind::data_ended:
            return "the data ends before the end of " + place_of(fault);
        case kind::value:
            return place_and_value_of(fault) + "; allowed: " + range_of(fault);
        case kind::parameter_set_missing:
            return missing_set_of(fault);
        case kind::contradiction:
            return place_and_value_of(fault) + "; reading cannot go on from there";
        case kind::no_memory:
            return "not enough memory after " + place_of(fault);
        case kind::trailing_bits:
            return "malformed trailing bits: " + place_and_value_of(fault);
        case kind::unknown_extension:
            return "kept as data: no extension that is known follows " + place_of(fault);
    }
    return "no fault";
}

}  // namespace kovran
