#include "output/difference_summary.h"

#include <kovran/h265/h265_rules.h>

#include "units/type_name.h"

#include <fmt/format.h>

namespace kovran::inspect {
namespace {

std::string counts(const std::map<unsigned int, std::uint64_t>& units_by_type) {
    std::string text;
    for (const auto& [type, count] : units_by_type) {
        text += fmt::format("{}{} {}", text.empty() ? "" : ", ",
                            type_name(static_cast<h265_nal_unit_type>(type)), count);
    }
    return text;
}

}  // namespace

void difference_summary::add(const char* rule, h265_nal_unit_type type) {
    ++different_;
    ++units_by_rule_[rule != nullptr ? rule : "not known"][type];
}

std::string difference_summary::text() const {
    std::string text = fmt::format("{} of {} NAL units are read differently\n", different_, units_);
    for (const auto& [rule, units] : units_by_rule_) {
        text += fmt::format("\n{}", rule);
        if (const h265_rule* const known = h265_find_rule(rule.c_str()); known != nullptr) {
            text += *known->clause == '\0' ? "\n" : fmt::format(" ({})\n", known->clause);
            text += fmt::format("  {}\n", known->meaning);
        } else {
            text += '\n';
        }
        text += fmt::format("  units: {}\n", counts(units));
    }
    return text;
}

}  // namespace kovran::inspect
