#ifndef KOVRAN_SRC_H265_SEI_NESTED_MESSAGES_H
#define KOVRAN_SRC_H265_SEI_NESTED_MESSAGES_H

#include <kovran/h265/sei/h265_nal_sei_message.h>

#include "h2645_common/element.h"
#include "h265/sei/sei_context.h"

#include <cstddef>
#include <vector>

namespace kovran {

// sei_message(), clause 7.3.5, within a nesting message or by itself. False when its payloadType or
// payloadSize is cut off. Instantiated in the source of h265_nal_sei_message.
template <class Walker>
[[nodiscard]] bool walk_message(Walker& walk, h265_nal_sei_message& message,
                                const sei_context& context);

// So many messages, one after the other.
template <class Walker>
[[nodiscard]] bool nested_messages(Walker& walk,
                                   element<std::vector<h265_nal_sei_message>&> messages,
                                   std::size_t count, const sei_context& context) {
    if (!walk.grow(count, messages.field)) {
        return false;
    }
    for (std::size_t i = 0; i < count; ++i) {
        const bool framed = walk.structure(messages[i], [&](h265_nal_sei_message& message) {
            return walk_message(walk, message, context);
        });
        if (!framed) {
            return false;
        }
    }
    return true;
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_SEI_NESTED_MESSAGES_H
