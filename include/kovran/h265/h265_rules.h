#ifndef KOVRAN_H265_H265_RULES_H
#define KOVRAN_H265_H265_RULES_H

#include <kovran/export.h>

namespace kovran {

// A rule by which parse reads otherwise than H.265 says, on purpose. What a traced parse names in
// h265_traced_element::rule.
struct h265_rule {
    const char* name;
    const char* clause;   // the one that it departs from; empty where there is none
    const char* meaning;  // a sentence: what the rule does, and what the standard says
};

// The rule of this name, or null. All of them that change how bits are read are known.
[[nodiscard]] KOVRAN_API const h265_rule* h265_find_rule(const char* name);

}  // namespace kovran

#endif  // KOVRAN_H265_H265_RULES_H
