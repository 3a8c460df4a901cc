#include "units/forbidden_sequence.h"

#include <cstddef>
#include <cstring>

namespace kovran::inspect {

const unsigned char* find_forbidden_sequence(const unsigned char* first,
                                             const unsigned char* last) {
    while (last - first >= 3) {
        const void* const zero = std::memchr(first, 0, static_cast<std::size_t>(last - first - 2));
        if (zero == nullptr) {
            break;
        }
        first = static_cast<const unsigned char*>(zero);
        if (first[1] != 0) {
            first += 2;
        } else if (first[2] <= 2) {
            return first;
        } else {
            first += 3;
        }
    }
    return last;
}

}  // namespace kovran::inspect
