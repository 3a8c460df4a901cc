#ifndef KOVRAN_TOOLS_INSPECT_UNITS_NAL_UNIT_H
#define KOVRAN_TOOLS_INSPECT_UNITS_NAL_UNIT_H

#include <kovran/h265/h265_nal.h>

#include "units/fault_list.h"

#include <cstdint>

namespace kovran::inspect {

// A NAL unit in its stream, or bytes between NAL units that cannot be read as one.
struct nal_unit {
    bool readable = false;  // false: bytes that are no unit; they have an offset, a size and faults

    std::uint64_t index = 0;   // among the units that can be read
    std::uint64_t offset = 0;  // in the stream, of the first header byte
    std::uint64_t prefix = 0;  // bytes of the start code and its zero bytes, or of the length
    std::uint64_t size = 0;    // header included
    unsigned char* bytes = nullptr;
    h265_nal header;

    fault_list faults;
};

}  // namespace kovran::inspect

#endif  // KOVRAN_TOOLS_INSPECT_UNITS_NAL_UNIT_H
