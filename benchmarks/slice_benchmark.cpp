// Slice segment headers, from the bytes of their units: the first bytes decoded, then parsed up to
// the list modification.
#include <memory>

#include "slice_streams.h"

namespace kovran::benchmarks {
namespace {

std::size_t read_slices(host& reader, const slice_stream& input) {
    std::size_t read = 0;
    for (const h265_nal_reader& unit : input.slices) {
        if (reader.read_slice(unit)) {
            ++read;
        }
    }
    return read;
}

const bool registered = [] {
    for (const slice_stream& input : slice_streams()) {
        const auto reader = std::make_shared<host>();
        values_of_slices(*reader, input);
        contend_with_allocations("slices/" + input.name + "/kovran", input.stream.size(),
                                 [reader, &input] { return read_slices(*reader, input); });
    }
    return true;
}();

}  // namespace
}  // namespace kovran::benchmarks
