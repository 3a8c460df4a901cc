// The messages of SEI units, from the bytes of the units: decoded, walked, and those with a record
// parsed.
#include <memory>
#include <string>

#include "sei_stream.h"

namespace kovran::benchmarks {
namespace {

template <class Host>
std::size_t read_messages(Host& reader) {
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

template <rules read_by>
void add_contender(const std::string& name) {
    const auto reader = std::make_shared<host_by<read_by>>();
    values_of_messages(*reader);
    contend_with_allocations("sei/rich/" + name, the_sei_stream().size,
                             [reader] { return read_messages(*reader); });
}

const bool registered = [] {
    add_contender<rules::standard>("kovran");
    add_contender<rules::own>("kovran_parse");
    return true;
}();

}  // namespace
}  // namespace kovran::benchmarks
