#include "process/file_size_limit.h"

#include <csignal>

namespace kovran::inspect {

void report_file_size_limit() {
    std::signal(SIGXFSZ, SIG_IGN);
}

}  // namespace kovran::inspect
