#include <kovran/h265/h265_nal_sei_reader.h>

int main() {
    unsigned char rbsp[] = {0x01, 0x02, 0xAA, 0xBB, 0x80};  // payload type, size, payload
    kovran::h265_nal_sei_reader messages;
    messages.set_ptr(rbsp, rbsp + sizeof rbsp, kovran::PREFIX_SEI_NUT);
    bool right = messages.next_message() && messages.payload_size == 2;
    unsigned char* next = rbsp;
    right = right && kovran::h2645_common_read_xostylesei_vlu32(next, messages.end) == 1;
    return right && messages.payload_type == kovran::h265_nal_sei_payload_type_prefix_pic_timing
               ? 0
               : 1;
}
