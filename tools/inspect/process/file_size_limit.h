#ifndef KOVRAN_TOOLS_INSPECT_PROCESS_FILE_SIZE_LIMIT_H
#define KOVRAN_TOOLS_INSPECT_PROCESS_FILE_SIZE_LIMIT_H

namespace kovran::inspect {

// Writing a file larger than the process may write raises SIGXFSZ. From here on it is an error of
// that write, as a full disk is.
void report_file_size_limit();

}  // namespace kovran::inspect

#endif  // KOVRAN_TOOLS_INSPECT_PROCESS_FILE_SIZE_LIMIT_H
