#include "process/wait_to_retry.h"

#include <cerrno>

#include <poll.h>

namespace kovran::inspect {

bool wait_to_retry(int descriptor, short events) noexcept {
    if (errno == EINTR) {
        return true;
    }
    if (errno != EAGAIN) {
        return false;
    }
    pollfd ready{descriptor, events, 0};
    return ::poll(&ready, 1, /*timeout=*/-1) >= 0 || errno == EINTR;
}

}  // namespace kovran::inspect
