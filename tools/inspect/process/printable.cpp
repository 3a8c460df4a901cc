#include "process/printable.h"

#include <algorithm>
#include <cstddef>

#include <fmt/format.h>

namespace kovran::inspect {
namespace {

struct range {
    unsigned int lowest;
    unsigned int highest;
};

bool is_in(range values, char letter) {
    const auto byte = static_cast<unsigned char>(letter);
    return byte >= values.lowest && byte <= values.highest;
}

// A form of characters in UTF-8. Longer forms of what has a shorter one are none.
struct form {
    range first;
    range second;
    std::size_t size;
};

constexpr range continuation = {0x80, 0xBF};
constexpr form forms[] = {
    {{0xC2, 0xC2}, {0xA0, 0xBF}, 2},  // without the control characters U+0080 to U+009F
    {{0xC3, 0xDF}, continuation, 2},  //
    {{0xE0, 0xE0}, {0xA0, 0xBF}, 3},  //
    {{0xE1, 0xEF}, continuation, 3},  //
    {{0xF0, 0xF0}, {0x90, 0xBF}, 4},  //
    {{0xF1, 0xF3}, continuation, 4},  //
    {{0xF4, 0xF4}, {0x80, 0x8F}, 4},
};

bool begins_as(const form& character, std::string_view text) {
    return text.size() >= character.size && is_in(character.first, text[0]) &&
           is_in(character.second, text[1]) &&
           std::all_of(text.begin() + 2, text.begin() + character.size,
                       [](char letter) { return is_in(continuation, letter); });
}

// Of the character that the text begins with, or of one byte.
std::size_t character_size(std::string_view text) {
    for (const form& character : forms) {
        if (begins_as(character, text)) {
            return character.size;
        }
    }
    return 1;
}

bool is_control(char letter) {
    return is_in({0x00, 0x1F}, letter) || is_in({0x7F, 0x9F}, letter);
}

}  // namespace

std::string printable(std::string_view text) {
    std::string shown;
    while (!text.empty()) {
        const std::size_t size = character_size(text);
        if (size == 1 && is_control(text[0])) {
            shown += fmt::format("\\x{:02x}", static_cast<unsigned char>(text[0]));
        } else {
            shown += text.substr(0, size);
        }
        text.remove_prefix(size);
    }
    return shown;
}

}  // namespace kovran::inspect
