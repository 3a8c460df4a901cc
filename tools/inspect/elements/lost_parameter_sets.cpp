#include "elements/lost_parameter_sets.h"

#include <fmt/format.h>

namespace kovran::inspect {
namespace {

// Of a PPS, clause 7.4.3.3.1; those of the others are lower. It bounds what is remembered.
constexpr unsigned int highest_id = 63;

const char* name_of(h265_nal_unit_type type) {
    return type == VPS_NUT ? "VPS" : type == SPS_NUT ? "SPS" : "PPS";
}

}  // namespace

void lost_parameter_sets::add(h265_nal_unit_type type, unsigned int id, std::uint64_t unit) {
    if (id <= highest_id) {
        units_.emplace(std::pair(type, id), unit);
    }
}

std::string lost_parameter_sets::missing(h265_nal_unit_type type, unsigned int id,
                                         const char* user) const {
    std::string fault =
        fmt::format("{} {}, which this {} uses, is missing", name_of(type), id, user);
    const auto lost = units_.find({type, id});
    if (lost != units_.end()) {
        fault += fmt::format(": the {} of unit {} could not be read", name_of(type), lost->second);
    }
    return fault;
}

}  // namespace kovran::inspect
