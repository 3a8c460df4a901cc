#ifndef KOVRAN_TOOLS_INSPECT_ELEMENTS_TRACE_SINK_H
#define KOVRAN_TOOLS_INSPECT_ELEMENTS_TRACE_SINK_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace kovran::inspect {

// A name of the standard with the indices that stand behind it there: delta_poc_s0_minus1[2].
struct indexed_name {
    std::string name;
    std::vector<std::size_t> indices;
};

[[nodiscard]] std::string to_string(const indexed_name& name);

// A syntax element as it was read. Bits are counted from the first one after the NAL unit header,
// without emulation prevention bytes.
struct traced_element {
    indexed_name name;
    const char* descriptor = nullptr;  // as in clause 7.2, "ue(v)"
    std::size_t bit = 0;
    std::size_t width = 0;
    std::int64_t value = 0;  // of extension data none, 0
};

// Takes what a tracing walk reads, in the order of the bits.
class trace_sink {
public:
    trace_sink() = default;
    trace_sink(const trace_sink&) = delete;
    trace_sink& operator=(const trace_sink&) = delete;
    virtual ~trace_sink() = default;

    virtual void begin_structure(const indexed_name& name) = 0;
    virtual void end_structure() = 0;
    virtual void read(const traced_element& read_element) = 0;
};

}  // namespace kovran::inspect

#endif  // KOVRAN_TOOLS_INSPECT_ELEMENTS_TRACE_SINK_H
