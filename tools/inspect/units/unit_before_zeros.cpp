#include "units/unit_before_zeros.h"

#include "units/zero_bytes.h"

namespace kovran::inspect {

bool unit_before_zeros::add(const unsigned char* first, const unsigned char* last) {
    const std::size_t header_size = bytes_.empty() ? 2 : 0;  // which may be zeros
    const auto size = static_cast<std::size_t>(last - first);
    const std::size_t zeros = trailing_zeros(first + header_size, last);
    if (zeros == size) {
        add_zeros(zeros);
        return true;
    }
    const std::size_t room = largest - bytes_.size();
    if (zeros_behind_ > room || size - zeros > room - zeros_behind_) {
        return false;
    }
    bytes_.insert(bytes_.end(), static_cast<std::size_t>(zeros_behind_), 0);
    bytes_.insert(bytes_.end(), first, last - zeros);
    zeros_behind_ = zeros;
    return true;
}

}  // namespace kovran::inspect
