#include "h2645_common/fault_finder.h"

#include <algorithm>
#include <string_view>

namespace kovran {
void fault_finder::start() {
    fault_ = {};
    reads_ = 0;
    path_of_last_kept_ = false;
    part_was_refused_ = false;
}

void fault_finder::open(const h2645_common_element_name& structure) {
    if (last().depth > depth_ && !path_of_last_kept_) {
        path_of_last_ = structures_;
        path_of_last_kept_ = true;
    }
    if (depth_ < structures_.size()) {
        structures_[depth_] = structure;
    }
    ++depth_;
}

void fault_finder::close(bool walked) {
    if (!walked) {
        tell_refusal_of_last();
    }
    --depth_;
}

void fault_finder::refuse(const h2645_common_element_name& name, std::size_t bit,
                          std::int64_t value, std::int64_t highest) {
    if (!untold()) {
        return;
    }
    for (std::size_t back = 0; back < std::min(reads_, latest_.size()); ++back) {
        const read_element& each = latest_[(reads_ - back) % latest_.size()];
        if (std::string_view(each.name.name) == name.name) {
            tell_value(each, highest);
            return;
        }
    }
    tell_value({name, bit, value, {}, depth_}, highest);
}

void fault_finder::missing(const char* parameter_set, unsigned int id) {
    if (tell(h2645_common_fault_kind::parameter_set_missing, last())) {
        fault_.parameter_set = parameter_set;
        fault_.parameter_set_id = id;
    }
}

void fault_finder::no_memory() {
    if (fault_.kind == h2645_common_fault_kind::unknown_extension) {
        forget();  // it could not be kept
    }
    tell(h2645_common_fault_kind::no_memory, last());
}

void fault_finder::unknown_extension() {
    tell(h2645_common_fault_kind::unknown_extension, last());
}

void fault_finder::trailing_bit(const h2645_common_element_name& name, std::size_t bit,
                                std::int64_t value, std::int64_t expected) {
    if (tell(h2645_common_fault_kind::trailing_bits, {name, bit, value, {}, depth_})) {
        fault_.lowest = expected;
        fault_.highest = expected;
    }
}

void fault_finder::end(bool walked) {
    if (!walked) {
        tell_refusal_of_last();
    } else if (!part_was_refused_ && fault_.kind == h2645_common_fault_kind::data_ended) {
        fault_ = {};  // the rules of this walk do not mind
    }
}

bool fault_finder::tell(h2645_common_fault_kind kind, const read_element& culprit) {
    if (!untold()) {
        return false;
    }
    const bool moved = path_of_last_kept_ && &culprit == &last();
    fault_.kind = kind;
    fault_.structures = moved ? path_of_last_ : structures_;
    fault_.structure_count = std::min(culprit.depth, h2645_common_fault::most_structures);
    fault_.element = culprit.name;
    fault_.first_bit = culprit.bit;
    fault_.value = culprit.value;
    return true;
}

void fault_finder::tell_value(const read_element& culprit, std::int64_t highest) {
    const value_range allowed =
        culprit.allowed.has(culprit.value) ? up_to(highest) : culprit.allowed;
    tell(h2645_common_fault_kind::value, culprit);
    fault_.lowest = allowed.lowest;
    fault_.highest = allowed.highest;
}

void fault_finder::tell_refusal_of_last() {
    if (!untold()) {
        return;
    }
    if (last().allowed.has(last().value)) {
        tell(h2645_common_fault_kind::contradiction, last());
    } else {
        tell_value(last(), last().allowed.highest);
    }
}

}  // namespace kovran
