#ifndef KOVRAN_TOOLS_INSPECT_VERBS_SHOW_DIFFERENCES_H
#define KOVRAN_TOOLS_INSPECT_VERBS_SHOW_DIFFERENCES_H

#include <kovran/h2645_common/h2645_common_nalfmt.h>

#include "process/exit_status.h"

#include <string>

namespace kovran::inspect {

struct differences_options {
    std::string file;
    h2645_common_nalfmt format = nalfmt_annex_b;
    bool all = false;  // show the units as well
};

// What the library's own rules read otherwise in a stream than the standard's, on standard output:
// rule by rule how many units of each type, and then, if asked for, the units: of each the first
// element that differs, in both readings, and the rule behind it. Faults are those that the
// standard's reading finds.
[[nodiscard]] exit_status show_differences(const differences_options& options);

}  // namespace kovran::inspect

#endif  // KOVRAN_TOOLS_INSPECT_VERBS_SHOW_DIFFERENCES_H
