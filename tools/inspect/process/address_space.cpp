#include "process/address_space.h"

#include <algorithm>

#include <sys/resource.h>

namespace kovran::inspect {

#if defined(__SANITIZE_ADDRESS__)
#define KOVRAN_SANITIZED_ADDRESSES
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define KOVRAN_SANITIZED_ADDRESSES
#endif
#endif

void cap_address_space() {
#if !defined(KOVRAN_SANITIZED_ADDRESSES)     // which reserves terabytes of addresses
    constexpr rlim_t cap = rlim_t{4} << 30;  // a unit of 1 GiB with its copies, or one of 3 GiB
    rlimit limit = {};
    if (getrlimit(RLIMIT_AS, &limit) == 0) {
        limit.rlim_cur = std::min(limit.rlim_cur, cap);
        setrlimit(RLIMIT_AS, &limit);
    }
#endif
}

}  // namespace kovran::inspect
