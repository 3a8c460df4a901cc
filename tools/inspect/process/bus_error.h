#ifndef KOVRAN_TOOLS_INSPECT_PROCESS_BUS_ERROR_H
#define KOVRAN_TOOLS_INSPECT_PROCESS_BUS_ERROR_H

namespace kovran::inspect {

// Reading a mapped file whose end somebody cuts off, or whose disk fails, raises SIGBUS. From here
// on that ends the program with a message and exit status 2.
void report_bus_errors();

}  // namespace kovran::inspect

#endif  // KOVRAN_TOOLS_INSPECT_PROCESS_BUS_ERROR_H
