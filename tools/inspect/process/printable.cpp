#include "process/printable.h"

#include <fmt/format.h>

namespace kovran::inspect {

// Bytes 80 to 9F are control characters alone and behind C2, but not inside other characters of
// UTF-8.
std::string printable(std::string_view text) {
    constexpr unsigned char before_control_in_utf8 = 0xC2;
    std::string shown;
    unsigned char before = 0;
    for (const char letter : text) {
        auto byte = static_cast<unsigned char>(letter);
        const bool is_control =
            byte < 0x20 || byte == 0x7F ||
            (byte >= 0x80 && byte < 0xA0 && (before < 0x80 || before == before_control_in_utf8));
        if (is_control) {
            shown += fmt::format("\\x{:02x}", byte);
            byte = 0;
        } else {
            shown += letter;
        }
        before = byte;
    }
    return shown;
}

}  // namespace kovran::inspect
