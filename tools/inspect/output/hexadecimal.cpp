#include "output/hexadecimal.h"

#include <fmt/format.h>

namespace kovran::inspect {

std::string hexadecimal(const unsigned char* first, const unsigned char* last) {
    return fmt::format("{:02x}", fmt::join(first, last, ""));
}

}  // namespace kovran::inspect
