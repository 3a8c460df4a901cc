#ifndef KOVRAN_TOOLS_INSPECT_UNITS_OPEN_STREAM_H
#define KOVRAN_TOOLS_INSPECT_UNITS_OPEN_STREAM_H

#include <kovran/h2645_common/h2645_common_nalfmt.h>

#include "input/input.h"

#include <memory>
#include <string>

namespace kovran::inspect {

// As open_input(), for a stream of this format. A file of another kind where an Annex B stream is
// expected is a failure that names the kind; its first bytes tell.
[[nodiscard]] std::unique_ptr<input> open_stream(const std::string& path,
                                                 h2645_common_nalfmt format);

}  // namespace kovran::inspect

#endif  // KOVRAN_TOOLS_INSPECT_UNITS_OPEN_STREAM_H
