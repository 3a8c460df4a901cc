#ifndef KOVRAN_TOOLS_INSPECT_OUTPUT_FAULT_JSON_H
#define KOVRAN_TOOLS_INSPECT_OUTPUT_FAULT_JSON_H

#include <kovran/h265/h265_fault.h>

#include "elements/element_path.h"

#include <nlohmann/json.hpp>

namespace kovran::inspect {

// A fault of the structure that stands at `place`, with the keys that its kind has.
[[nodiscard]] nlohmann::ordered_json fault_json(const h265_fault& fault, const element_path& place);

}  // namespace kovran::inspect

#endif  // KOVRAN_TOOLS_INSPECT_OUTPUT_FAULT_JSON_H
