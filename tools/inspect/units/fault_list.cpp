#include "units/fault_list.h"

#include <utility>

#include <fmt/format.h>

namespace kovran::inspect {

void fault_list::push_back(std::string fault) {
    if (kept_.size() < most_kept) {
        kept_.push_back(std::move(fault));
    } else {
        ++more_;
    }
}

void fault_list::append(const fault_list& others) {
    for (const std::string& fault : others) {
        push_back(fault);
    }
    more_ += others.more_;
}

void fault_list::clear() {
    kept_.clear();
    more_ = 0;
}

std::vector<std::string> fault_list::texts() const {
    std::vector<std::string> all = kept_;
    if (more_ != 0) {
        all.push_back(
            fmt::format("and {} more {} in this unit", more_, more_ == 1 ? "fault" : "faults"));
    }
    return all;
}

}  // namespace kovran::inspect
