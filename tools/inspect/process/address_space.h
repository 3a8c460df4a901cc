#ifndef KOVRAN_TOOLS_INSPECT_PROCESS_ADDRESS_SPACE_H
#define KOVRAN_TOOLS_INSPECT_PROCESS_ADDRESS_SPACE_H

namespace kovran::inspect {

// Lets the program have no more memory than its work can need, so that what a hostile stream asks
// for ends as an error of this program and not as trouble of the machine.
void cap_address_space();

}  // namespace kovran::inspect

#endif  // KOVRAN_TOOLS_INSPECT_PROCESS_ADDRESS_SPACE_H
