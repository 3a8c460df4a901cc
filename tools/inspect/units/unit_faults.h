#ifndef KOVRAN_TOOLS_INSPECT_UNITS_UNIT_FAULTS_H
#define KOVRAN_TOOLS_INSPECT_UNITS_UNIT_FAULTS_H

#include <kovran/h2645_common/h2645_common_nalfmt.h>

#include "units/nal_unit.h"

#include <cstdint>
#include <string>

namespace kovran::inspect {

// What can be seen to be wrong with a unit from its header and from how its bytes follow each
// other. Few faults, however many bytes are wrong: each kind is told once, with its first place.
void add_unit_faults(nal_unit& unit, h2645_common_nalfmt format);

// Annex B: `count` start codes, the first at this place of the stream, that the reader took for
// none.
[[nodiscard]] std::string passed_over_fault(std::uint64_t first, std::uint64_t count);

}  // namespace kovran::inspect

#endif  // KOVRAN_TOOLS_INSPECT_UNITS_UNIT_FAULTS_H
