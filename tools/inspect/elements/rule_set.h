#ifndef KOVRAN_TOOLS_INSPECT_ELEMENTS_RULE_SET_H
#define KOVRAN_TOOLS_INSPECT_ELEMENTS_RULE_SET_H

namespace kovran::inspect {

// What syntax structures are read by: the standard's rules or those of the library's parse().
enum class rule_set { standard, own };

[[nodiscard]] constexpr const char* name_of(rule_set rules) {
    return rules == rule_set::standard ? "standard" : "own";
}

}  // namespace kovran::inspect

#endif  // KOVRAN_TOOLS_INSPECT_ELEMENTS_RULE_SET_H
