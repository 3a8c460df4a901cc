#ifndef KOVRAN_TOOLS_INSPECT_ELEMENTS_FIRST_DIFFERENCE_H
#define KOVRAN_TOOLS_INSPECT_ELEMENTS_FIRST_DIFFERENCE_H

#include <kovran/h265/h265_fault.h>

#include "elements/element_list.h"
#include "units/fault_list.h"

#include <optional>
#include <vector>

namespace kovran::inspect {

// The first element of a unit that the library's own rules read otherwise than the standard's, or
// its faults where all elements are alike. The readings are compared part by part, and nothing is
// kept of a part but what is told: all of them find the same SEI messages.
//
// What the library's own rules leave unread of every slice segment header is no difference, and
// neither is an SEI message that they leave as bytes, what follows the last element of another, or
// a message that none of the rules can read.
class first_difference {
public:
    using element = element_list::entry;

    // A part in one of the readings.
    struct part {
        const std::vector<element>& elements;
        bool has_opaque_payload;
        const fault_list& faults;
        const h265_fault& fault;  // the one that ends it, if any
    };

    // `rules_alone` is read by the library's own rules, with the parameter sets that the standard's
    // have given.
    void compare(const part& standard, const part& own, const part& rules_alone);

    // The following is known when all parts were compared.

    [[nodiscard]] bool differs() const { return elements_differ_ || faults_differ_; }
    // Whether the reading by the rules alone has what the own one has up to the difference, or to
    // the end where there is none. If not, a parameter set makes the difference.
    [[nodiscard]] bool is_of_rules_alone() const;
    // The rule that decided on the element: the latest one up to there, as some change what stands
    // further on. Null when there is none.
    [[nodiscard]] const char* rule() const { return rule_; }
    // What each reading has there; nothing where it ends.
    [[nodiscard]] const std::optional<element>& standard() const { return standard_; }
    [[nodiscard]] const std::optional<element>& own() const { return own_; }

private:
    bool elements_differ_ = false;
    bool faults_differ_ = false;
    std::optional<element> standard_;
    std::optional<element> own_;

    const char* rule_ = nullptr;
    bool rules_alone_alike_ = true;
    bool rules_alone_faults_alike_ = true;
};

}  // namespace kovran::inspect

#endif  // KOVRAN_TOOLS_INSPECT_ELEMENTS_FIRST_DIFFERENCE_H
