#include "process/message.h"

#include "process/wait_to_retry.h"

#include <cstdio>

#include <poll.h>
#include <unistd.h>

namespace kovran::inspect {

void write_message(std::string_view text) noexcept {
    while (!text.empty()) {
        const std::size_t count = std::fwrite(text.data(), 1, text.size(), stderr);
        text.remove_prefix(count);
        if (!text.empty() && !wait_to_retry(STDERR_FILENO, POLLOUT)) {
            return;
        }
    }
}

}  // namespace kovran::inspect
