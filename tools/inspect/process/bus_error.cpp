#include "process/bus_error.h"

#include "process/exit_status.h"

#include <csignal>

#include <unistd.h>

namespace kovran::inspect {
namespace {

// Only what may be called inside a signal handler.
extern "C" void end_on_bus_error(int) {
    constexpr char message[] =
        "kovran: the input file became shorter, or its disk failed, while it was being read\n";
    const ssize_t written = ::write(STDERR_FILENO, message, sizeof message - 1);
    static_cast<void>(written);
    ::_exit(status_failed);
}

}  // namespace

void report_bus_errors() {
    struct sigaction action {};
    action.sa_handler = end_on_bus_error;
    ::sigaction(SIGBUS, &action, nullptr);
}

}  // namespace kovran::inspect
