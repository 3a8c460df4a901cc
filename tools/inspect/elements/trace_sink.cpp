#include "elements/trace_sink.h"

#include "elements/meaning.h"

#include <cstddef>
#include <string_view>

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

bool is_text(const h265_traced_element& element) {
    return std::string_view(element.descriptor) == "st(v)";
}

value_form form_of(const h265_traced_element& element) {
    constexpr std::size_t widest_number = 63;
    if (is_text(element)) {
        return value_form::text;
    }
    if (element.run != 0) {
        return value_form::bytes;
    }
    if (element.width <= widest_number || is_named_as_extension_data(element.name)) {
        return value_form::number;
    }
    return element.first_bit % 8 == 0 && element.width % 8 == 0 ? value_form::bytes
                                                                : value_form::bits;
}

// The zero byte that ends a text is none of it.
std::size_t shown_bytes(const h265_traced_element& element) {
    const std::size_t bytes = (element.first_bit % 8 + element.width + 7) / 8;
    return is_text(element) ? bytes - 1 : bytes;
}

shown_element shown(const h265_trace& trace, const h265_traced_element& element,
                    const unsigned char* begin, std::size_t behind_header) {
    constexpr std::string_view opaque = "reserved_sei_message_payload_byte";
    const std::size_t first_bit = element.first_bit + 8 * behind_header;
    shown_element result{name_of(trace, element), element.descriptor, first_bit,
                         element.width,           element.value,      element.rule,
                         element.out_of_range,    element.run};
    result.form = form_of(element);
    if (result.form != value_form::number) {
        result.begin = begin + element.first_bit / 8;
        result.end = result.begin + shown_bytes(element);
    }
    return element.name == opaque ? opaque_payload(begin - behind_header, result.begin, result.end)
                                  : result;
}

}  // namespace

shown_element opaque_payload(const unsigned char* first, const unsigned char* begin,
                             const unsigned char* end) {
    shown_element element;
    element.name.name = "payload";
    element.descriptor = "bytes";
    element.first_bit = 8 * static_cast<std::size_t>(begin - first);
    element.width = 8 * static_cast<std::size_t>(end - begin);
    element.form = value_form::bytes;
    element.begin = begin;
    element.end = end;
    element.is_opaque_payload = true;
    return element;
}

void replay(const h265_trace& trace, const unsigned char* begin, std::size_t behind_header,
            trace_sink& sink) {
    open_structures structures(trace, sink);
    for (std::size_t i = 0; i < trace.elements.size(); ++i) {
        structures.begin_up_to(i);
        structures.end_down_to(trace.elements[i].structure);
        sink.read(shown(trace, trace.elements[i], begin, behind_header));
    }
    structures.begin_up_to(trace.elements.size());
    structures.end_down_to(h265_trace::no_structure);
}

}  // namespace kovran::inspect
