#ifndef KOVRAN_TESTS_SUPPORT_RANGE_CASE_LIST_H
#define KOVRAN_TESTS_SUPPORT_RANGE_CASE_LIST_H

#include <cstdint>
#include <string>
#include <vector>

#include "support/range_cases.h"

namespace kovran::test {

// Collects the cases of units that are written from values of one type.
template <class Values>
class case_list {
public:
    case_list() = default;
    explicit case_list(const Values& base) : base_(base) {}

    // `set` gives the element a value, and the elements beside it what the range is for.
    template <class Set>
    void at_most(const std::string& element, std::int64_t lowest, std::int64_t highest, Set set) {
        add(element, lowest, highest, highest, highest + 1, set);
    }
    template <class Set>
    void at_least(const std::string& element, std::int64_t lowest, std::int64_t highest, Set set) {
        add(element, lowest, highest, lowest, lowest - 1, set);
    }
    // Of multiples of `lowest`.
    template <class Set>
    void at_least_one(const std::string& element, std::int64_t lowest, std::int64_t highest,
                      Set set) {
        add(element, lowest, highest, lowest, 0, set);
    }
    template <class Set>
    void within(const std::string& element, std::int64_t lowest, std::int64_t highest, Set set) {
        at_least(element, lowest, highest, set);
        at_most(element, lowest, highest, set);
    }
    template <class Set>
    void reserved_above(const std::string& element, std::int64_t highest, Set set) {
        at_most(element, 0, highest, set);
        cases_.back().reserved = true;
    }

    std::vector<range_case> cases() const { return cases_; }

private:
    template <class Set>
    void add(const std::string& element, std::int64_t lowest, std::int64_t highest,
             std::int64_t limit, std::int64_t past, Set set) {
        Values at_limit = base_;
        set(at_limit, limit);
        Values past_limit = base_;
        set(past_limit, past);
        cases_.push_back({element, lowest, highest, limit, past, bits_of(at_limit),
                          bits_of(past_limit), /*reserved=*/false});
    }

    Values base_;
    std::vector<range_case> cases_;
};

}  // namespace kovran::test

#endif  // KOVRAN_TESTS_SUPPORT_RANGE_CASE_LIST_H
