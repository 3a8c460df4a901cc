// From the bytes of a parameter set's NAL unit to its record: decoded, then parsed into a record
// that held the same before.
#include <memory>
#include <string>

#include "host.h"
#include "parameter_set_streams.h"
#include "parsing.h"
#include "require.h"

namespace kovran::benchmarks {
namespace {

template <rules read_by>
void add_contender(parameter_set_stream& input, const std::string& name) {
    const auto reader = std::make_shared<host_by<read_by>>();
    for (const h265_nal_reader* unit : {&input.vps, &input.sps, &input.pps}) {
        require(reader->read(*unit, look_away), "parameter sets of " + input.name);
    }
    contend_with_allocations("vps/" + input.name + "/" + name, size_of(input.vps),
                             [reader, &input] { return reader->read_vps(input.vps); });
    contend_with_allocations("sps/" + input.name + "/" + name, size_of(input.sps),
                             [reader, &input] { return reader->read_sps(input.sps); });
    contend_with_allocations("pps/" + input.name + "/" + name, size_of(input.pps),
                             [reader, &input] { return reader->read_pps(input.pps); });
}

const bool registered = [] {
    for (parameter_set_stream& input : parameter_set_streams()) {
        add_contender<rules::standard>(input, "kovran");
        add_contender<rules::own>(input, "kovran_parse");
    }
    return true;
}();

}  // namespace
}  // namespace kovran::benchmarks
