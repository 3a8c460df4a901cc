#ifndef KOVRAN_TOOLS_INSPECT_PROCESS_BUS_ERROR_H
#define KOVRAN_TOOLS_INSPECT_PROCESS_BUS_ERROR_H

#include "process/failure.h"

#include <cstddef>

namespace kovran::inspect {

// Reading a mapped file whose end somebody cuts off, or whose disk fails, raises SIGBUS. From here
// on, zeros are read in place of what is lost of the mapping that is watched, and the program can
// end by an ordinary failure. Any other bus error still ends it at once.
void survive_bus_errors();

// One mapping at a time; a null pointer ends the watch.
void watch_mapping(unsigned char* begin, std::size_t size) noexcept;

// Throws input_lost() when zeros stand in place of bytes of the watched mapping. To be called
// before what was made of its bytes is used.
void require_mapped_bytes();

[[nodiscard]] failure input_lost();

}  // namespace kovran::inspect

#endif  // KOVRAN_TOOLS_INSPECT_PROCESS_BUS_ERROR_H
