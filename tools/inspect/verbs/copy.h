#ifndef KOVRAN_TOOLS_INSPECT_VERBS_COPY_H
#define KOVRAN_TOOLS_INSPECT_VERBS_COPY_H

#include <kovran/h2645_common/h2645_common_nalfmt.h>

#include "process/exit_status.h"

#include <string>

namespace kovran::inspect {

struct copy_options {
    std::string in;
    std::string out;
    h2645_common_nalfmt from = nalfmt_annex_b;
    h2645_common_nalfmt to = nalfmt_annex_b;
};

// Writes the NAL units of a stream into another one, perhaps of another format.
[[nodiscard]] exit_status copy(const copy_options& options);

}  // namespace kovran::inspect

#endif  // KOVRAN_TOOLS_INSPECT_VERBS_COPY_H
