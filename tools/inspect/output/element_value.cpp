#include "output/element_value.h"

#include <kovran/h2645_common/h2645_common_bitreader.h>

#include "output/hexadecimal.h"
#include "process/printable.h"

#include <cstddef>

#include <fmt/format.h>

namespace kovran::inspect {

void write_value(const shown_element& element, output& lines) {
    switch (element.form) {
        case value_form::number:
            lines.write(fmt::format("{}", element.value));
            break;
        case value_form::bytes:
            write_hexadecimal(element.begin, element.end, lines);
            break;
        case value_form::text:
            lines.write(printable(text_of(element)));
            break;
        case value_form::bits:
            lines.write("0x" + digits_of_bits(element));
            break;
    }
}

std::string digits_of_bits(const shown_element& element) {
    constexpr std::size_t digit_bits = 4;
    h2645_common_bitreader reader(element.begin, element.end);
    reader.skip(static_cast<unsigned int>(element.first_bit % 8));
    std::string digits;
    for (std::size_t left = element.width; left != 0;) {
        const std::size_t bits = left % digit_bits != 0 ? left % digit_bits : digit_bits;
        digits += "0123456789abcdef"[reader.get<unsigned int>(static_cast<unsigned char>(bits))];
        left -= bits;
    }
    return digits;
}

std::string_view text_of(const shown_element& element) {
    return {reinterpret_cast<const char*>(element.begin),
            static_cast<std::size_t>(element.end - element.begin)};
}

}  // namespace kovran::inspect
