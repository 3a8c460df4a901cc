// Slice segment headers, from the bytes of their units: the first bytes decoded, then parsed; to
// their end by the standard's rules, up to the list modification by the library's own.
#include <memory>

#include "slice_streams.h"

namespace kovran::benchmarks {
namespace {

template <class Host>
std::size_t read_slices(Host& reader, const slice_stream& input) {
    std::size_t read = 0;
    for (const h265_nal_reader& unit : input.slices) {
        if (reader.read_slice(unit)) {
            ++read;
        }
    }
    return read;
}

template <rules read_by>
void add_contender(const slice_stream& input, const std::string& name) {
    const auto reader = std::make_shared<host_by<read_by>>();
    values_of_slices(*reader, input);
    contend_with_allocations("slices/" + input.name + "/" + name, input.stream.size(),
                             [reader, &input] { return read_slices(*reader, input); });
}

const bool registered = [] {
    for (const slice_stream& input : slice_streams()) {
        add_contender<rules::standard>(input, "kovran");
        add_contender<rules::own>(input, "kovran_parse");
    }
    return true;
}();

}  // namespace
}  // namespace kovran::benchmarks
