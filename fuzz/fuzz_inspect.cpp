// Any stream through the verbs of the inspector: each ends with what it could read, messages for
// what it could not, and an exit status that tells which; what it prints is what its form promises;
// and a copy has the units of the stream.
//
// Input: a byte for the format, a byte for the verb and its options, the stream.
#include <nlohmann/json.hpp>

#include <cstddef>
#include <cstdint>
#include <exception>
#include <new>
#include <string>
#include <string_view>
#include <vector>

#include "claim.h"
#include "process/failure.h"
#include "redirected.h"
#include "verbs/copy.h"
#include "verbs/show_differences.h"
#include "verbs/show_info.h"
#include "verbs/show_nals.h"
#include "verbs/show_syntax.h"

namespace {

using kovran::fuzz::claim;
using kovran::fuzz::memory_file;
using kovran::fuzz::redirected;
using namespace kovran::inspect;

struct outcome {
    exit_status status = status_failed;
    std::string out;
    std::string messages;
    bool failed = false;
};

// A run as of the program, but for what it does about failures.
template <class Verb>
outcome run(Verb verb) {
    static memory_file out;
    out.fill("");
    outcome result;
    bool out_of_memory = false;
    {
        redirected streams(out);
        try {
            result.status = verb();
        } catch (const failure&) {
            result.failed = true;
        } catch (const std::bad_alloc&) {
            out_of_memory = true;
        }
        result.messages = streams.messages();
    }
    claim(!out_of_memory, "a short stream does not ask for all memory");
    claim(result.failed || result.status == (result.messages.empty() ? status_read : status_faults),
          "the exit status tells whether there were messages");
    result.out = out.contents();
    return result;
}

std::vector<std::string_view> lines_of(std::string_view text) {
    std::vector<std::string_view> lines;
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        claim(end != std::string_view::npos, "the last line is a whole one");
        lines.push_back(text.substr(0, end));
        text.remove_prefix(end + 1);
    }
    return lines;
}

void check_messages(const outcome& result) {
    for (const std::string_view line : lines_of(result.messages)) {
        claim(line.rfind("kovran: /proc/self/fd/", 0) == 0, "a message tells of the stream");
    }
}

std::vector<nlohmann::json> check_json(const outcome& result) {
    std::vector<nlohmann::json> objects;
    std::uint64_t index = 0;
    for (const std::string_view line : lines_of(result.out)) {
        objects.push_back(nlohmann::json::parse(line, nullptr, /*allow_exceptions=*/false));
        const nlohmann::json& object = objects.back();
        claim(object.is_object(), "each line is a JSON object");
        claim(!object.contains("index") || object["index"] == index++, "units are counted");
    }
    return objects;
}

outcome nals_json(const std::string& file, kovran::h2645_common_nalfmt format) {
    nals_options options;
    options.file = file;
    options.format = format;
    options.json = true;
    return run([&] { return show_nals(options); });
}

// The units without what another framing changes.
std::vector<std::string> unit_headers(const outcome& nals) {
    std::vector<std::string> headers;
    for (nlohmann::json& object : check_json(nals)) {
        if (object.contains("index")) {
            for (const char* const changed : {"offset", "prefix", "size", "faults"}) {
                object.erase(changed);
            }
            headers.push_back(object.dump());
        }
    }
    return headers;
}

void check_copy(const std::string& file, kovran::h2645_common_nalfmt from,
                kovran::h2645_common_nalfmt to) {
    static memory_file copied;
    copied.fill("");
    const copy_options options{file, copied.path(), from, to};
    const outcome result = run([&] { return copy(options); });
    check_messages(result);
    claim(result.out.empty(), "a copy goes into its file");
    if (result.failed) {
        return;
    }
    const outcome units = nals_json(copied.path(), to);
    claim(units.failed || unit_headers(units) == unit_headers(nals_json(file, from)),
          "a copy has the units of the stream");
    claim(!units.failed || to == kovran::nalfmt_annex_b,
          "only an Annex B stream can be taken for a file of another kind");
}

kovran::h2645_common_nalfmt format_of_number(unsigned int number) {
    return static_cast<kovran::h2645_common_nalfmt>(1 + (number + 4) % 5);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 2) {
        return 0;
    }
    static memory_file stream;
    stream.fill({reinterpret_cast<const char*>(data) + 2, size - 2});
    const kovran::h2645_common_nalfmt format = format_of_number(data[0]);
    const std::string& file = stream.path();

    const unsigned int verb = data[1] % 8;
    const rule_set rules = data[1] / 8 % 2 == 0 ? rule_set::standard : rule_set::own;
    const unsigned int to = data[1] / 16;

    syntax_options syntax;
    syntax.file = file;
    syntax.format = format;
    syntax.rules = rules;
    outcome result;
    switch (verb) {
        case 0:
            result = run([&] { return show_info({file, format, rules}); });
            break;
        case 1: {
            nals_options nals;
            nals.file = file;
            nals.format = format;
            nals.colour = colour_choice::always;
            result = run([&] { return show_nals(nals); });
            break;
        }
        case 2:
            result = nals_json(file, format);
            check_json(result);
            break;
        case 3:
            result = run([&] { return show_syntax(syntax); });
            break;
        case 4:
            syntax.style = syntax_style::json;
            result = run([&] { return show_syntax(syntax); });
            for (const nlohmann::json& unit : check_json(result)) {
                claim(!unit.contains("fault") || unit.contains("faults"),
                      "a fault is told in words, too");
            }
            break;
        case 5:
            syntax.style = syntax_style::trace;
            result = run([&] { return show_syntax(syntax); });
            break;
        case 6:
            result = run([&] { return show_differences({file, format, /*all=*/to % 2 != 0}); });
            break;
        default:
            check_copy(file, format, format_of_number(to));
            return 0;
    }
    claim(!result.failed || (format == kovran::nalfmt_annex_b && result.out.empty()),
          "a file that can be read is shown, or named as one of another kind");
    check_messages(result);
    static_cast<void>(lines_of(result.out));
    return 0;
}
