#include "output/fault_json.h"

#include <kovran/h2645_common/h2645_common_base_store.h>

#include <algorithm>
#include <string>

namespace kovran::inspect {
namespace {

const char* name_of(h265_fault_kind kind) {
    switch (kind) {
        case h265_fault_kind::none:
            break;
        case h265_fault_kind::data_ended:
            return "data_ended";
        case h265_fault_kind::value:
            return "value";
        case h265_fault_kind::parameter_set_missing:
            return "parameter_set_missing";
        case h265_fault_kind::contradiction:
            return "contradiction";
        case h265_fault_kind::no_memory:
            return "no_memory";
        case h265_fault_kind::trailing_bits:
            return "trailing_bits";
        case h265_fault_kind::unknown_extension:
            return "unknown_extension";
    }
    return "none";
}

std::string path_of(const h265_fault& fault, element_path place) {
    const unsigned int structures = std::min(fault.structure_count, fault.most_structures);
    for (unsigned int i = 0; i < structures; ++i) {
        place.open(to_string(fault.structures[i]));
    }
    return place.to(to_string(fault.element));
}

}  // namespace

nlohmann::ordered_json fault_json(const h265_fault& fault, const element_path& place) {
    nlohmann::ordered_json object;
    object["kind"] = name_of(fault.kind);
    if (*fault.element.name != '\0') {
        object["element"] = path_of(fault, place);
    }
    object["bit"] = fault.first_bit;
    if (fault.kind != h265_fault_kind::data_ended) {
        object["value"] = fault.value;
    }
    if (fault.kind == h265_fault_kind::value || fault.kind == h265_fault_kind::trailing_bits) {
        object["lowest"] = fault.lowest;
        object["highest"] = fault.highest;
    }
    if (fault.kind == h265_fault_kind::parameter_set_missing) {
        object["parameter_set"] = fault.parameter_set;
        if (fault.parameter_set_id != h2645_common_base_store<int>::no_id) {
            object["parameter_set_id"] = fault.parameter_set_id;
        }
    }
    return object;
}

}  // namespace kovran::inspect
