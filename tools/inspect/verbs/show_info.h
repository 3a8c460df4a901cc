#ifndef KOVRAN_TOOLS_INSPECT_VERBS_SHOW_INFO_H
#define KOVRAN_TOOLS_INSPECT_VERBS_SHOW_INFO_H

#include <kovran/h2645_common/h2645_common_nalfmt.h>

#include "elements/rule_set.h"
#include "process/exit_status.h"

#include <string>

namespace kovran::inspect {

struct info_options {
    std::string file;
    h2645_common_nalfmt format = nalfmt_annex_b;
    rule_set rules = rule_set::standard;
};

// One screen about a whole stream on standard output.
[[nodiscard]] exit_status show_info(const info_options& options);

}  // namespace kovran::inspect

#endif  // KOVRAN_TOOLS_INSPECT_VERBS_SHOW_INFO_H
