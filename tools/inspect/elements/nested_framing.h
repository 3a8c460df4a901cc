#ifndef KOVRAN_TOOLS_INSPECT_ELEMENTS_NESTED_FRAMING_H
#define KOVRAN_TOOLS_INSPECT_ELEMENTS_NESTED_FRAMING_H

#include <kovran/h2645_common/h2645_common_element_name.h>

#include "elements/trace_sink.h"

namespace kovran::inspect {

// Whether the structure is an SEI message in a payload, which begins with its framing.
[[nodiscard]] bool is_nested_message(const h2645_common_element_name& structure);

// payloadType and payloadSize of such a message, clause 7.3.5, from the bytes that they are coded
// in.
class nested_framing {
public:
    // Takes one of these bytes; true when it is the last one.
    [[nodiscard]] bool add(const shown_element& byte);

    [[nodiscard]] unsigned int payload_type() const { return payload_type_; }
    [[nodiscard]] unsigned int payload_size() const { return sum_; }

private:
    unsigned int sum_ = 0;  // of the bytes of the value that is coded
    unsigned int payload_type_ = 0;
};

}  // namespace kovran::inspect

#endif  // KOVRAN_TOOLS_INSPECT_ELEMENTS_NESTED_FRAMING_H
