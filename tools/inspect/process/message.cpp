#include "process/message.h"

#include <cstdio>

namespace kovran::inspect {

void write_message(std::string_view text) noexcept {
    static_cast<void>(std::fwrite(text.data(), 1, text.size(), stderr));
}

}  // namespace kovran::inspect
