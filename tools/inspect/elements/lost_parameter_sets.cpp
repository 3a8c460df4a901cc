#include "elements/lost_parameter_sets.h"

#include <fmt/format.h>

namespace kovran::inspect {
namespace {

// Of a PPS, clause 7.4.3.3.1; those of the others are lower. It bounds what is remembered.
constexpr unsigned int highest_id = 63;

}  // namespace

void lost_parameter_sets::add(std::string_view kind, unsigned int id, std::uint64_t unit) {
    if (id <= highest_id) {
        units_.emplace(std::pair(kind, id), unit);
    }
}

std::string lost_parameter_sets::missing(std::string_view kind, unsigned int id,
                                         std::string_view user) const {
    std::string fault = fmt::format("{} {}, which this {} uses, is missing", kind, id, user);
    const auto lost = units_.find({kind, id});
    if (lost != units_.end()) {
        fault += fmt::format(": the {} of unit {} could not be read", kind, lost->second);
    }
    return fault;
}

}  // namespace kovran::inspect
