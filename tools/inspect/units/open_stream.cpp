#include "units/open_stream.h"

#include "process/failure.h"
#include "units/foreign_stream.h"

#include <algorithm>
#include <cstddef>

#include <fmt/format.h>

namespace kovran::inspect {
namespace {

// As a word of a shell's command line.
std::string shell_word(const std::string& text) {
    constexpr std::string_view plain =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789_./+:,-";
    if (text.find_first_not_of(plain) == std::string::npos) {
        return text;
    }
    std::string word = "'";
    for (const char letter : text) {
        word += letter == '\'' ? std::string("'\\''") : std::string(1, letter);
    }
    return word + '\'';
}

void refuse_foreign_stream(input& stream, const std::string& path) {
    do {
        if (begins_as_h265(stream.begin(), stream.end())) {
            return;
        }
    } while (stream.size() < foreign_stream_prefix && stream.read_more());
    const unsigned char* const last =
        stream.begin() + std::min(stream.size(), foreign_stream_prefix);
    const std::string file = path == "-" ? "FILE" : shell_word(path);
    if (const auto found = find_foreign_stream(stream.begin(), last, file)) {
        throw failure(fmt::format("{}: this is {}, not an H.265 byte stream; {}",
                                  stream.file().name(), found->kind, found->advice));
    }
}

}  // namespace

std::unique_ptr<input> open_stream(const std::string& path, h2645_common_nalfmt format) {
    std::unique_ptr<input> stream = open_input(path);
    if (format == nalfmt_annex_b) {
        refuse_foreign_stream(*stream, path);
    }
    return stream;
}

}  // namespace kovran::inspect
