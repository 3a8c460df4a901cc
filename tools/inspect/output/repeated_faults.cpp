#include "output/repeated_faults.h"

#include <fmt/format.h>

namespace kovran::inspect {
namespace {

constexpr std::size_t most_texts = 256;

}  // namespace

bool repeated_faults::add(std::string_view fault, const std::string& place) {
    const auto known = faults_.find(fault);
    if (known != faults_.end()) {
        ++known->second.count;
        known->second.last_place = place;
        return false;
    }
    if (faults_.size() == most_texts) {
        ++others_;
        return false;
    }
    in_order_.push_back(faults_.emplace(fault, occurrences_of_fault{}).first);
    return true;
}

std::vector<std::string> repeated_faults::summary() const {
    std::vector<std::string> lines;
    for (const auto& each : in_order_) {
        const auto& [fault, occurrences] = *each;
        if (occurrences.count > 1) {
            lines.push_back(fmt::format("{}: {}; last of {} such faults", occurrences.last_place,
                                        fault, occurrences.count));
        }
    }
    if (others_ != 0) {
        lines.push_back(fmt::format("and {} more {}", others_, others_ == 1 ? "fault" : "faults"));
    }
    return lines;
}

}  // namespace kovran::inspect
