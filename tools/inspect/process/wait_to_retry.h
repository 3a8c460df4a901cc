#ifndef KOVRAN_TOOLS_INSPECT_PROCESS_WAIT_TO_RETRY_H
#define KOVRAN_TOOLS_INSPECT_PROCESS_WAIT_TO_RETRY_H

namespace kovran::inspect {

// To be called after a read or write that failed. True when it is to be tried again: it was
// interrupted, or the descriptor is non-blocking and is now ready for these events of poll().
// Somebody who shares a pipe or terminal may have made it so. False: errno tells why it failed.
[[nodiscard]] bool wait_to_retry(int descriptor, short events) noexcept;

}  // namespace kovran::inspect

#endif  // KOVRAN_TOOLS_INSPECT_PROCESS_WAIT_TO_RETRY_H
