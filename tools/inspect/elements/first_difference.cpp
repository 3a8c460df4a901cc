#include "elements/first_difference.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

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

// What a reading has at a place, or what it lacks there because the data ends.
std::string_view name_at(const first_difference::part& reading, std::size_t place) {
    if (place < reading.elements.size()) {
        const std::string_view path = reading.elements[place].path;
        return path.substr(path.rfind('.') + 1);
    }
    return reading.fault.kind == h265_fault_kind::data_ended ? reading.fault.element.name : "";
}

// Whether an element can be the first one that the library's own rules leave unread: in a slice
// segment header, clause 7.3.6.1, behind the list modification, or the address of a dependent one;
// in an SEI message, clause D.2.1, behind the last element that they know.
bool is_behind_own_reading(std::string_view name) {
    constexpr std::array<std::string_view, 12> names = {
        "mvd_l1_zero_flag",
        "cabac_init_flag",
        "collocated_from_l0_flag",
        "collocated_ref_idx",
        "luma_log2_weight_denom",
        "five_minus_max_num_merge_cand",
        "slice_qp_delta",
        "num_entry_point_offsets",
        "slice_segment_header_extension_length",
        "alignment_bit_equal_to_one",
        "reserved_payload_extension_data",
        "payload_bit_equal_to_one",
    };
    return std::find(names.begin(), names.end(), name) != names.end();
}

}  // namespace

void first_difference::compare(const part& standard, const part& own, const part& rules_alone) {
    const std::size_t place = mismatch(standard.elements, own.elements);
    if (place == own.elements.size() && own.faults.empty() &&
        (own.has_opaque_payload || is_behind_own_reading(name_at(standard, place)))) {
        return;
    }
    const bool neither_reads_it =
        standard.has_opaque_payload && own.fault.kind != h265_fault_kind::none;
    if (neither_reads_it && latest_rule(rules_alone.elements, own.elements.size()) == nullptr) {
        return;
    }
    faults_differ_ = faults_differ_ || !(standard.faults == own.faults);
    rules_alone_faults_alike_ = rules_alone_faults_alike_ && own.faults == rules_alone.faults;
    if (elements_differ_) {
        take(standard_, standard.elements, 0);
        take(own_, own.elements, 0);
        return;
    }
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
