#include "units/stream_format.h"

namespace kovran::inspect {
namespace {

struct named_format {
    std::string_view name;
    h2645_common_nalfmt format;
};

constexpr named_format formats[] = {
    {"annexb", nalfmt_annex_b},    {"length8", nalfmt_length8},   {"length16", nalfmt_length16},
    {"length24", nalfmt_length24}, {"length32", nalfmt_length32},
};

}  // namespace

std::vector<std::string> format_names() {
    std::vector<std::string> names;
    for (const named_format& known : formats) {
        names.emplace_back(known.name);
    }
    return names;
}

h2645_common_nalfmt format_of(std::string_view name) {
    for (const named_format& known : formats) {
        if (known.name == name) {
            return known.format;
        }
    }
    return nalfmt_none;
}

std::string_view format_name(h2645_common_nalfmt format) {
    for (const named_format& known : formats) {
        if (known.format == format) {
            return known.name;
        }
    }
    return "none";
}

}  // namespace kovran::inspect
