#ifndef KOVRAN_H265_H265_NAL_SEI_READER_H
#define KOVRAN_H265_H265_NAL_SEI_READER_H

#include <kovran/export.h>
#include <kovran/h2645_common/h2645_common_read_xostylesei_vlu32.h>
#include <kovran/h265/h265_nal.h>
#include <kovran/h265/h265_nal_sei.h>

namespace kovran {

// Walks the messages of an SEI NAL unit, sei_rbsp(), clause 7.3.2.4. All pointers point into your
// bytes, which must outlive it. It allocates nothing and may be copied.
//
//     h265_nal_sei_reader messages(rbsp, rbsp + size, reader.nal.nal_unit_type);
//     while (messages.next_message()) {
//         h2645_common_bitreader bits(messages.payload_begin, messages.payload_end);
//         ...
//     }
struct h265_nal_sei_reader {
    unsigned char* cursor = nullptr;         // where the next message starts
    unsigned char* end = nullptr;            // of the RBSP
    unsigned char* message_begin = nullptr;  // of the message read last: its payloadType
    unsigned char* payload_begin = nullptr;  // its payload
    unsigned char* payload_end = nullptr;    // never beyond `end`
    unsigned int payload_type = h265_nal_sei_payload_type_none;
    h265_nal_unit_type nal_unit_type = TRAIL_N;
    unsigned int payload_size = 0;  // as coded; may reach beyond `end`
    bool message_valid = false;     // the latest next_message() read a message
    bool truncated = false;         // its payload is cut off by `end`

    h265_nal_sei_reader() = default;
    h265_nal_sei_reader(unsigned char* rbsp_begin, unsigned char* rbsp_end,
                        h265_nal_unit_type type) {
        set_ptr(rbsp_begin, rbsp_end, type);
    }

    // Starts over with other bytes: those after the two NAL unit header bytes, without emulation
    // prevention bytes and without the zero bytes that may follow the unit.
    KOVRAN_API void set_ptr(unsigned char* rbsp_begin, unsigned char* rbsp_end,
                            h265_nal_unit_type type);

    // Reads the next message; true when there was one, even a truncated one. False when fewer than
    // two bytes are left, or payloadType or payloadSize is cut off by the end: `cursor` is then at
    // `end` and the field that was cut off is 0xFFFFFFFF.
    KOVRAN_API bool next_message();
};

}  // namespace kovran

#endif  // KOVRAN_H265_H265_NAL_SEI_READER_H
