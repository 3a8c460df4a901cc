#ifndef KOVRAN_SRC_H265_SEI_WALK_PAYLOAD_H
#define KOVRAN_SRC_H265_SEI_WALK_PAYLOAD_H

#include "h265/sei/sei_context.h"

namespace kovran {

// Walks the payload of an SEI message. Instantiated for each record in the record's own source, by
// payload_parsing.h, so that the source of all messages does not have all descriptions.
template <class Walker, class Record>
[[nodiscard]] bool walk_payload(Walker& walk, Record& record, const sei_context& context);

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_SEI_WALK_PAYLOAD_H
