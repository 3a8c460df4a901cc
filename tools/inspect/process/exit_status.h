#ifndef KOVRAN_TOOLS_INSPECT_PROCESS_EXIT_STATUS_H
#define KOVRAN_TOOLS_INSPECT_PROCESS_EXIT_STATUS_H

namespace kovran::inspect {

enum exit_status : int {
    status_read = 0,    // success
    status_faults = 1,  // the stream has faults
    status_failed = 2,  // usage or I/O error
};

}  // namespace kovran::inspect

#endif  // KOVRAN_TOOLS_INSPECT_PROCESS_EXIT_STATUS_H
