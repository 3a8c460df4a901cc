#include <kovran/h2645_common/h2645_common_nal_reader.h>

#include <algorithm>
#include <cstddef>

namespace kovran {

void h2645_common_nal_reader_base::rewind() {
    unsigned char* payload_end = fence;
    if (found && length_known) {
        const bool has_header = nal_length >= 2;
        const auto in_range = static_cast<std::size_t>(fence - payload_begin);
        const std::size_t wanted = has_header ? payload_length : 0;
        payload_end = payload_begin + std::min(wanted, in_range);
    }
    decode_ptr = found ? payload_begin : nullptr;
    decode_fence = found ? payload_end : nullptr;
}

void h2645_common_nal_reader_base::do_give_up() {
    found = false;
    gave_up = true;
    nal_begin = nullptr;
    frame_begin = nullptr;
    payload_begin = nullptr;
    nal_length = 0;
    payload_length = 0;
    decode_ptr = nullptr;
    decode_fence = nullptr;
}

}  // namespace kovran
