#ifndef KOVRAN_H265_H265_RULES_H
#define KOVRAN_H265_H265_RULES_H

#include <kovran/export.h>

namespace kovran {

// A rule by which parse departs from H.265 on purpose. A traced parse names it in
// h265_traced_element::rule.
struct h265_rule {
    const char* name;
    const char* clause;   // the one that it departs from; empty where there is none
    const char* meaning;  // a sentence: what the rule does, and what the standard says
};

// The rule with this name, or null. Every rule that changes how bits are read is known.
[[nodiscard]] KOVRAN_API const h265_rule* h265_find_rule(const char* name);

}  // namespace kovran

#endif  // KOVRAN_H265_H265_RULES_H
