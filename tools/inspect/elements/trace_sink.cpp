#include "elements/trace_sink.h"

#include <cstddef>

namespace kovran::inspect {
namespace {

// Follows the structures of a trace as its elements go in and out of them.
class open_structures {
public:
    open_structures(const h265_trace& trace, trace_sink& sink) : trace_(trace), sink_(sink) {}

    // Structures that begin before the element of this index.
    void begin_up_to(std::size_t element) {
        while (next_ < trace_.structures.size() &&
               trace_.structures[next_].first_element <= element) {
            end_down_to(trace_.structures[next_].parent);
            if (!trace_.structures[next_].is_prefix()) {
                sink_.begin_structure(trace_.structures[next_].name);
            }
            open_ = static_cast<unsigned int>(next_++);
        }
    }

    // Leaves `structure` as the innermost one.
    void end_down_to(unsigned int structure) {
        while (open_ != structure && open_ != h265_trace::no_structure) {
            if (!trace_.structures[open_].is_prefix()) {
                sink_.end_structure();
            }
            open_ = trace_.structures[open_].parent;
        }
    }

private:
    const h265_trace& trace_;
    trace_sink& sink_;
    std::size_t next_ = 0;
    unsigned int open_ = h265_trace::no_structure;
};

}  // namespace

void replay(const h265_trace& trace, trace_sink& sink) {
    open_structures structures(trace, sink);
    for (std::size_t i = 0; i < trace.elements.size(); ++i) {
        structures.begin_up_to(i);
        structures.end_down_to(trace.elements[i].structure);
        const h265_traced_element& element = trace.elements[i];
        sink.read({name_of(trace, element), element.descriptor, element.first_bit, element.width,
                   element.value, element.rule, element.out_of_range});
    }
    structures.begin_up_to(trace.elements.size());
    structures.end_down_to(h265_trace::no_structure);
}

}  // namespace kovran::inspect
