#include "output/colour.h"

#include <cstdlib>

namespace kovran::inspect {
namespace {

std::string_view environment(const char* name) {
    const char* const value = std::getenv(name);
    return value == nullptr ? std::string_view{} : value;
}

}  // namespace

bool wants_colour(colour_choice choice, const file_descriptor& file) {
    if (choice != colour_choice::on_terminals) {
        return choice == colour_choice::always;
    }
    return file.is_terminal() && environment("NO_COLOR").empty() && environment("TERM") != "dumb";
}

std::string_view colour_of(h265_nal_unit_type type) {
    constexpr std::string_view green = "\x1b[32m";
    constexpr std::string_view yellow = "\x1b[33m";
    constexpr std::string_view cyan = "\x1b[36m";
    if (type >= BLA_W_LP && type <= RSV_IRAP_VCL23) {
        return green;
    }
    if (type >= VPS_NUT && type <= PPS_NUT) {
        return cyan;
    }
    return type < VPS_NUT ? std::string_view{} : yellow;
}

}  // namespace kovran::inspect
