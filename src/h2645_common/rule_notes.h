#ifndef KOVRAN_SRC_H2645_COMMON_RULE_NOTES_H
#define KOVRAN_SRC_H2645_COMMON_RULE_NOTES_H

namespace kovran {

// What rules leave for the walker that asks them: the rule that last decided otherwise than another
// set of rules would have.
struct rule_notes {
    const char* noted = nullptr;

    void note(const char* rule) { noted = rule; }

    // The note, which is then gone; null where there is none.
    [[nodiscard]] const char* take_note() {
        const char* const rule = noted;
        noted = nullptr;
        return rule;
    }
};

// A bound of such rules with the other set's beside it.
template <class Value>
struct noted_bound {
    const char* rule;
    Value own;
    Value other;

    friend constexpr noted_bound operator-(const noted_bound& bound, Value less) {
        return {bound.rule, bound.own - less, bound.other - less};
    }
};

}  // namespace kovran

#endif  // KOVRAN_SRC_H2645_COMMON_RULE_NOTES_H
