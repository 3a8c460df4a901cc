#ifndef KOVRAN_TOOLS_INSPECT_PROCESS_EXIT_STATUS_H
#define KOVRAN_TOOLS_INSPECT_PROCESS_EXIT_STATUS_H

namespace kovran::inspect {

enum exit_status : int {
    status_read = 0,    // read, nothing to complain of
    status_faults = 1,  // read, with faults found in the stream
    status_failed = 2,  // cannot read or write, or wrong arguments
};

}  // namespace kovran::inspect

#endif  // KOVRAN_TOOLS_INSPECT_PROCESS_EXIT_STATUS_H
