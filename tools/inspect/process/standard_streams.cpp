#include "process/standard_streams.h"

#include <initializer_list>

#include <fcntl.h>
#include <unistd.h>

namespace kovran::inspect {

void reserve_standard_streams() {
    for (const int number : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (::fcntl(number, F_GETFD) == -1) {
            // The lowest free number, so this one; opened the wrong way round for its use.
            const int flags = number == STDIN_FILENO ? O_WRONLY : O_RDONLY;
            static_cast<void>(::open("/dev/null", flags | O_CLOEXEC));
        }
    }
}

}  // namespace kovran::inspect
