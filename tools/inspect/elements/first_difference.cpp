#include "elements/first_difference.h"

#include <algorithm>
#include <cstddef>

namespace kovran::inspect {
namespace {

using elements = std::vector<first_difference::element>;

std::size_t mismatch(const elements& a, const elements& b) {
    const auto first =
        std::mismatch(a.begin(), a.end(), b.begin(), b.end(),
                      [](const auto& one, const auto& other) { return one.reads_like(other); });
    return static_cast<std::size_t>(first.first - a.begin());
}

// The latest up to an element, or to the end.
const char* latest_rule(const elements& all, std::size_t last) {
    std::size_t i = std::min(last + 1, all.size());
    while (i > 0 && all[i - 1].rule == nullptr) {
        --i;
    }
    return i > 0 ? all[i - 1].rule : nullptr;
}

// The element at a place behind which there may be none; then it is the first one of a later part.
void take(std::optional<first_difference::element>& taken, const elements& all, std::size_t place) {
    if (!taken && place < all.size()) {
        taken = all[place];
    }
}

}  // namespace

void first_difference::compare(const part& standard, const part& own, const part& rules_alone) {
    faults_differ_ = faults_differ_ || !(standard.faults == own.faults);
    rules_alone_faults_alike_ = rules_alone_faults_alike_ && own.faults == rules_alone.faults;
    if (elements_differ_) {
        take(standard_, standard.elements, 0);
        take(own_, own.elements, 0);
        return;
    }
    const std::size_t place = mismatch(standard.elements, own.elements);
    const std::size_t alike = mismatch(own.elements, rules_alone.elements);
    const bool end_alike = alike == own.elements.size() && alike == rules_alone.elements.size();
    rules_alone_alike_ = rules_alone_alike_ && (alike > place || end_alike);
    if (const char* const rule = latest_rule(rules_alone.elements, place); rule != nullptr) {
        rule_ = rule;
    }
    elements_differ_ = place != standard.elements.size() || place != own.elements.size();
    if (elements_differ_) {
        take(standard_, standard.elements, place);
        take(own_, own.elements, place);
    }
}

bool first_difference::is_of_rules_alone() const {
    const bool own_goes_on = own_.has_value();
    return rules_alone_alike_ && (own_goes_on || rules_alone_faults_alike_);
}

}  // namespace kovran::inspect
