#ifndef KOVRAN_TOOLS_INSPECT_PROCESS_FAILURE_H
#define KOVRAN_TOOLS_INSPECT_PROCESS_FAILURE_H

#include <stdexcept>
#include <string>

namespace kovran::inspect {

// Why the program cannot go on, in words for the person who started it.
struct failure : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// Arguments that do not make a command.
struct wrong_arguments : failure {
    using failure::failure;
};

// "NAME: REASON", the reason being that of a value of errno.
[[nodiscard]] failure system_failure(const std::string& name, int error_number);

}  // namespace kovran::inspect

#endif  // KOVRAN_TOOLS_INSPECT_PROCESS_FAILURE_H
