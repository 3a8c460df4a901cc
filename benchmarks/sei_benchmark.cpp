// The messages of SEI units, from the bytes of the units: decoded, walked and parsed, by the own
// rules those that these know.
#include <memory>
#include <string>

#include "sei_stream.h"

namespace kovran::benchmarks {
namespace {

template <class Host>
std::size_t read_messages(Host& reader, const sei_stream& input) {
    std::size_t messages = 0;
    for (const h265_nal_reader& unit : input.units) {
        const bool read =
            reader.read_sei(unit, [&messages](const h265_nal_sei_reader&) { ++messages; });
        if (!read) {
            return std::size_t{0};
        }
    }
    return messages;
}

template <rules read_by>
void add_contender(const std::string& name, const sei_stream& input) {
    const auto reader = std::make_shared<host_by<read_by>>();
    values_of_messages(*reader, input);
    contend_with_allocations("sei/" + input.name + "/" + name, input.size,
                             [reader, &input] { return read_messages(*reader, input); });
}

const bool registered = [] {
    for (const auto& input : all_sei_streams()) {
        add_contender<rules::standard>("kovran", *input);
    }
    add_contender<rules::own>("kovran_parse", *all_sei_streams().front());
    return true;
}();

}  // namespace
}  // namespace kovran::benchmarks
