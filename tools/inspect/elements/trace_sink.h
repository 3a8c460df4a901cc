#ifndef KOVRAN_TOOLS_INSPECT_ELEMENTS_TRACE_SINK_H
#define KOVRAN_TOOLS_INSPECT_ELEMENTS_TRACE_SINK_H

#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_nal_sei_reader.h>
#include <kovran/h265/h265_trace.h>
#include <kovran/h265/sei/h265_nal_sei_message.h>

#include <cstddef>
#include <cstdint>

namespace kovran::inspect {

// What there is of an element to show.
enum class value_form {
    number,
    bytes,  // whole ones: a run of them, or a value of more than 63 bits
    text,   // st(v)
    bits,   // of a value of more than 63 bits, of which a byte may have a part
};

// A syntax element with its whole name. An SEI payload that is not taken apart is one, too.
struct shown_element {
    h2645_common_element_name name;
    const char* descriptor = "";
    std::size_t first_bit = 0;
    std::size_t width = 0;
    std::int64_t value = 0;
    const char* rule = nullptr;  // as in h265_traced_element
    bool out_of_range = false;
    std::size_t run = 0;  // likewise

    value_form form = value_form::number;
    // The bytes that the element is in, for all forms but numbers. Of a text without the zero byte.
    const unsigned char* begin = nullptr;
    const unsigned char* end = nullptr;

    bool is_opaque_payload = false;
};

// A payload that is not taken apart. The bits are counted from `first`.
[[nodiscard]] shown_element opaque_payload(const unsigned char* first, const unsigned char* begin,
                                           const unsigned char* end);

// Takes what is read of a unit, in the order of the bits, which are counted from the first one
// after the NAL unit header, without emulation prevention bytes.
class trace_sink {
public:
    trace_sink() = default;
    trace_sink(const trace_sink&) = delete;
    trace_sink& operator=(const trace_sink&) = delete;
    virtual ~trace_sink() = default;

    // False when only messages are of interest: then nothing else is told.
    [[nodiscard]] virtual bool wants_elements() const { return true; }

    virtual void begin_structure(const h2645_common_element_name& name) = 0;
    virtual void end_structure() = 0;
    virtual void read(const shown_element& element) = 0;
    // Where reading stopped, or what is wrong with what was read.
    virtual void fault(const h265_fault& /*found*/) {}

    // The reader stands on the SEI message that begins.
    virtual void begin_message(const h265_nal_sei_reader& message) = 0;
    // The same message as it was read by the standard's rules, behind its elements.
    virtual void message(const h265_nal_sei_message& /*read*/) {}
    virtual void end_message() = 0;
};

// Tells a sink what a parse has listed of the bytes from `begin` on, so many bytes behind the NAL
// unit header.
void replay(const h265_trace& trace, const unsigned char* begin, std::size_t behind_header,
            trace_sink& sink);

}  // namespace kovran::inspect

#endif  // KOVRAN_TOOLS_INSPECT_ELEMENTS_TRACE_SINK_H
