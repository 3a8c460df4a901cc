#include <kovran/h265/h265_nal_sei_reader.h>

#include <kovran/h2645_common/h2645_common_read_xostylesei_vlu32.h>

#include <cstddef>

namespace kovran {
namespace {

constexpr unsigned int cut_off = 0xFFFFFFFF;
constexpr unsigned char lone_trailing_bits = 0x80;

// Nearly every type and size is a single byte.
unsigned int byte_run(unsigned char*& p, unsigned char* end) {
    constexpr unsigned char more_follow = 0xFF;
    return p < end && *p != more_follow ? *p++ : h2645_common_read_xostylesei_vlu32(p, end);
}

}  // namespace

void h265_nal_sei_reader::set_ptr(unsigned char* rbsp_begin, unsigned char* rbsp_end,
                                  h265_nal_unit_type type) {
    *this = {};
    cursor = rbsp_begin;
    end = rbsp_end;
    nal_unit_type = type;
}

bool h265_nal_sei_reader::next_message() {
    message_valid = false;
    truncated = false;
    if (cursor == nullptr || end < cursor || end - cursor < 2) {
        return false;
    }
    message_begin = cursor;
    payload_type = byte_run(cursor, end);
    if (payload_type == cut_off) {
        return false;
    }
    payload_size = byte_run(cursor, end);
    if (payload_size == cut_off) {
        return false;
    }

    message_valid = true;
    payload_begin = cursor;
    truncated = payload_size > static_cast<std::size_t>(end - cursor);
    cursor = truncated ? end : cursor + payload_size;
    payload_end = cursor;
    if (end - cursor == 1 && *cursor == lone_trailing_bits) {
        cursor = end;
    }
    return true;
}

}  // namespace kovran
