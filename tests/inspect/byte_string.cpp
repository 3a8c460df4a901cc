#include "byte_string.h"

namespace kovran::test {
namespace {

int digit_value(char digit) {
    return digit <= '9' ? digit - '0' : digit - 'a' + 10;
}

}  // namespace

std::string bytes(std::string_view digits) {
    std::string result;
    int high = -1;
    for (const char digit : digits) {
        if (digit == ' ') {
            continue;
        }
        if (high < 0) {
            high = digit_value(digit);
        } else {
            result += static_cast<char>(high * 16 + digit_value(digit));
            high = -1;
        }
    }
    return result;
}

std::string length_prefixed(const std::vector<std::string>& units, std::size_t prefix_size) {
    std::string result;
    for (const std::string& unit : units) {
        for (std::size_t i = prefix_size; i-- != 0;) {
            result += static_cast<char>(unit.size() >> 8 * i & 0xFF);
        }
        result += unit;
    }
    return result;
}

}  // namespace kovran::test
