#ifndef KOVRAN_TOOLS_INSPECT_VERBS_SHOW_NALS_H
#define KOVRAN_TOOLS_INSPECT_VERBS_SHOW_NALS_H

#include <kovran/h2645_common/h2645_common_nalfmt.h>

#include "output/colour.h"
#include "process/exit_status.h"
#include "units/unit_selection.h"

#include <string>

namespace kovran::inspect {

struct nals_options {
    std::string file;
    h2645_common_nalfmt format = nalfmt_annex_b;
    unit_selection selection;
    bool json = false;
    colour_choice colour = colour_choice::on_terminals;
};

// A line on standard output for each NAL unit. Reads no further than the last unit to be shown.
[[nodiscard]] exit_status show_nals(const nals_options& options);

}  // namespace kovran::inspect

#endif  // KOVRAN_TOOLS_INSPECT_VERBS_SHOW_NALS_H
