#include "units/type_name.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <system_error>

namespace kovran::inspect {
namespace {

char upper_case(char letter) {
    return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
}

}  // namespace

std::string type_name(h265_nal_unit_type type) {
    const std::string number = std::to_string(static_cast<unsigned int>(type));
    // The library's text for these is a description that several of them share.
    if (type >= RSV_IRAP_VCL22 && type <= RSV_IRAP_VCL23) {
        return "RSV_IRAP_VCL" + number;
    }
    if (type >= RSV_VCL24 && type <= RSV_VCL31) {
        return "RSV_VCL" + number;
    }
    if (type <= SUFFIX_SEI_NUT) {
        const std::string_view name_and_meaning = h265_nal_unit_type_to_str(type);
        return std::string(name_and_meaning.substr(0, name_and_meaning.find(',')));
    }
    constexpr unsigned int first_unspecified = 48;
    return (type < first_unspecified ? "RSV_NVCL" : "UNSPEC") + number;
}

std::optional<h265_nal_unit_type> type_of(std::string_view text) {
    unsigned int number = type_count;
    const char* const last = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), last, number);
    if (error == std::errc{} && rest == last && number < type_count) {
        return static_cast<h265_nal_unit_type>(number);
    }
    std::string name(text);
    std::transform(name.begin(), name.end(), name.begin(), upper_case);
    for (number = 0; number < type_count; ++number) {
        const auto type = static_cast<h265_nal_unit_type>(number);
        if (name == type_name(type)) {
            return type;
        }
    }
    return std::nullopt;
}

}  // namespace kovran::inspect
