#include "units/type_lookup.h"

#include "process/failure.h"
#include "units/type_name.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <numeric>
#include <string>
#include <system_error>
#include <vector>

#include <fmt/format.h>

namespace kovran::inspect {
namespace {

std::string upper_case(std::string_view text) {
    std::string upper(text);
    for (char& letter : upper) {
        letter = letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
    }
    return upper;
}

using types = std::vector<h265_nal_unit_type>;

template <class Predicate>
types types_whose_name(Predicate matches) {
    types found;
    for (unsigned int number = 0; number < type_count; ++number) {
        const auto type = static_cast<h265_nal_unit_type>(number);
        if (matches(type_name(type))) {
            found.push_back(type);
        }
    }
    return found;
}

types types_called(const std::string& name) {
    types found = types_whose_name([&](const std::string& each) { return each == name; });
    if (found.empty()) {
        found = types_whose_name([&](const std::string& each) { return each.rfind(name, 0) == 0; });
    }
    if (found.empty()) {
        found = types_whose_name([&](const std::string& each) {
            return ('_' + each + '_').find('_' + name + '_') != std::string::npos;
        });
    }
    return found;
}

// How many letters must be put in, taken out or exchanged to make one of the other.
std::size_t edit_distance(const std::string& one, const std::string& other) {
    std::vector<std::size_t> row(other.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 0; i < one.size(); ++i) {
        std::size_t diagonal = row[0];
        row[0] = i + 1;
        for (std::size_t j = 0; j < other.size(); ++j) {
            const std::size_t exchanged = diagonal + (one[i] == other[j] ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({row[j] + 1, row[j + 1] + 1, exchanged});
        }
    }
    return row.back();
}

// Those whose names, or the first words of them, are a few slips away from this one.
types types_near(const std::string& name) {
    constexpr std::size_t longest_name = 20;
    if (name.size() > longest_name) {
        return {};
    }
    const auto distance_to = [&](const std::string& each) {
        return std::min(edit_distance(name, each),
                        edit_distance(name, each.substr(0, each.find('_'))));
    };
    std::size_t nearest = std::max<std::size_t>(1, name.size() / 3);
    for (unsigned int number = 0; number < type_count; ++number) {
        nearest =
            std::min(nearest, distance_to(type_name(static_cast<h265_nal_unit_type>(number))));
    }
    return types_whose_name([&](const std::string& each) { return distance_to(each) == nearest; });
}

// "A, B or C", of many only the first few.
std::string alternatives(const types& all) {
    constexpr std::size_t most = 6;
    std::string text;
    for (std::size_t i = 0; i < std::min(all.size(), most); ++i) {
        const char* const separator = i == 0 ? "" : i + 1 == all.size() ? " or " : ", ";
        text += separator + type_name(all[i]);
    }
    return all.size() > most ? text + ", ..." : text;
}

}  // namespace

h265_nal_unit_type type_of(std::string_view text) {
    unsigned int number = type_count;
    const char* const last = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), last, number);
    if (error == std::errc{} && rest == last && number < type_count) {
        return static_cast<h265_nal_unit_type>(number);
    }
    const std::string name = upper_case(text);
    const types found = name.empty() ? types{} : types_called(name);
    if (found.size() == 1) {
        return found.front();
    }
    if (!found.empty()) {
        throw failure(fmt::format("'{}' could be {}", text, alternatives(found)));
    }
    const types near = types_near(name);
    throw failure(fmt::format("'{}' is not a NAL unit type; {}", text,
                              near.empty() ? "use 0 to 63 or a name such as SPS or IDR_W_RADL"
                                           : "did you mean " + alternatives(near) + '?'));
}

}  // namespace kovran::inspect
