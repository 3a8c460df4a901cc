// The messages of SEI units, from the bytes of the units: decoded, walked, and those with a record
// parsed.
#include <memory>

#include "sei_stream.h"

namespace kovran::benchmarks {
namespace {

std::size_t read_messages(host& reader) {
    std::size_t messages = 0;
    for (const h265_nal_reader& unit : the_sei_stream().units) {
        const bool read =
            reader.read_sei(unit, [&messages](const h265_nal_sei_reader&) { ++messages; });
        if (!read) {
            return std::size_t{0};
        }
    }
    return messages;
}

const bool registered = [] {
    const auto reader = std::make_shared<host>();
    values_of_messages(*reader);
    contend_with_allocations("sei/rich/kovran", the_sei_stream().size,
                             [reader] { return read_messages(*reader); });
    return true;
}();

}  // namespace
}  // namespace kovran::benchmarks
