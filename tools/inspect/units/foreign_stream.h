#ifndef KOVRAN_TOOLS_INSPECT_UNITS_FOREIGN_STREAM_H
#define KOVRAN_TOOLS_INSPECT_UNITS_FOREIGN_STREAM_H

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace kovran::inspect {

// What a file holds in place of an H.265 byte stream, and what its owner can do about it.
struct foreign_stream {
    std::string kind;  // "an MP4 file"
    std::string advice;
};

// How many of a file's first bytes are looked at, at most.
inline constexpr std::size_t foreign_stream_prefix = std::size_t{64} << 10;

// Whether an Annex B stream of H.265 surely begins with these bytes, so that no more of them are
// needed. True for most streams as soon as the first NAL unit header is there.
[[nodiscard]] bool begins_as_h265(const unsigned char* first, const unsigned char* last);

// Judges the first bytes of a file. Nothing when H.265 parameter sets stand in them, or when they
// are of no known kind. `file` is the name to use in a command.
[[nodiscard]] std::optional<foreign_stream> find_foreign_stream(const unsigned char* first,
                                                                const unsigned char* last,
                                                                const std::string& file);

}  // namespace kovran::inspect

#endif  // KOVRAN_TOOLS_INSPECT_UNITS_FOREIGN_STREAM_H
