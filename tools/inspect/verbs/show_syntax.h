#ifndef KOVRAN_TOOLS_INSPECT_VERBS_SHOW_SYNTAX_H
#define KOVRAN_TOOLS_INSPECT_VERBS_SHOW_SYNTAX_H

#include <kovran/h2645_common/h2645_common_nalfmt.h>

#include "elements/rule_set.h"
#include "process/exit_status.h"
#include "units/unit_selection.h"

#include <string>

namespace kovran::inspect {

enum class syntax_style { tree, json, trace };

struct syntax_options {
    std::string file;
    h2645_common_nalfmt format = nalfmt_annex_b;
    rule_set rules = rule_set::standard;
    unit_selection selection;
    syntax_style style = syntax_style::tree;
};

// The syntax elements of the selected units on standard output. Units that are not selected are
// read all the same, as others need what they carry, up to the last one to be shown.
[[nodiscard]] exit_status show_syntax(const syntax_options& options);

}  // namespace kovran::inspect

#endif  // KOVRAN_TOOLS_INSPECT_VERBS_SHOW_SYNTAX_H
