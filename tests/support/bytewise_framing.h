#ifndef KOVRAN_TESTS_SUPPORT_BYTEWISE_FRAMING_H
#define KOVRAN_TESTS_SUPPORT_BYTEWISE_FRAMING_H

#include <kovran/h2645_common/h2645_common_nalfmt.h>
#include <kovran/h265/h265_nal.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace kovran::test {

// The framing algorithms in their plainest form, a byte at a time and every test spelled out. They
// are slow on purpose: what the library does in blocks must come out exactly like this.

// The fields have the names and the meaning of those of h265_nal_reader. Ranges are neither null
// nor reversed.
struct bytewise_reader {
    unsigned char* cursor = nullptr;
    unsigned char* begin = nullptr;
    unsigned char* fence = nullptr;
    unsigned char* nal_begin = nullptr;
    unsigned char* frame_begin = nullptr;
    unsigned char* payload_begin = nullptr;
    std::uint32_t nal_length = 0;
    std::uint32_t payload_length = 0;
    std::uint32_t zero_count = 0;
    bool found = false;
    bool gave_up = false;
    bool need_more_data = false;
    bool length_known = false;
    unsigned char* decode_ptr = nullptr;
    unsigned char* decode_fence = nullptr;
    h2645_common_nalfmt nalfmt = nalfmt_none;
    h265_nal nal;

    explicit bytewise_reader(h2645_common_nalfmt format) : nalfmt(format) {}

    void scan(unsigned char* first, unsigned char* last) {
        found = false;
        gave_up = false;
        length_known = false;
        zero_count = 0;
        nal.valid = false;
        payload_begin = nullptr;
        decode_ptr = nullptr;
        decode_fence = nullptr;
        begin = first;
        fence = last;

        frame_begin = nullptr;
        nal_begin = nullptr;
        nal_length = 0;
        payload_length = 0;
        cursor = fence;
        need_more_data = false;

        if (nalfmt == nalfmt_none) {
            return;
        }
        if (nalfmt == nalfmt_annex_b) {
            scan_annex_b(first, last);
        } else {
            scan_length_prefixed(nalfmt);
        }
        rewind();
    }

    void scan_annex_b(unsigned char* first, unsigned char* last) {
        begin = first;
        fence = last;
        cursor = last;
        for (unsigned char* p = first; last - p >= 5; ++p) {
            cursor = p;
            if (p[0] == 0 && p[1] == 0) {
                if (p[2] == 1) {
                    decode_header(p[3], p[4]);
                    if (nal.valid) {
                        length_known = false;
                        found = true;
                        frame_begin = p;
                        nal_begin = p + 3;
                        payload_begin = p + 5;
                        nal_length = 0;
                        payload_length = 0;
                        cursor = p + 5;
                        return;
                    }
                } else if (p[2] == 0) {
                    ++zero_count;
                } else {
                    zero_count = 0;
                }
            } else {
                zero_count = 0;
            }
        }
        need_more_data = true;
    }

    std::size_t block_decode(unsigned char* out, std::size_t n) {
        std::size_t written = 0;
        while (n > 2 && decode_fence - decode_ptr >= 3) {
            const unsigned char b0 = decode_ptr[0];
            const unsigned char b1 = decode_ptr[1];
            const unsigned char b2 = decode_ptr[2];
            if (b2 > 3) {
                out[written++] = b0;
                out[written++] = b1;
                out[written++] = b2;
                decode_ptr += 3;
                n -= 3;
            } else if (b0 == 0 && b1 == 0 && b2 == 3) {
                out[written++] = 0;
                out[written++] = 0;
                decode_ptr += 3;
                n -= 2;
            } else if (b0 == 0 && b1 == 0) {
                decode_ptr = decode_fence;
                return written;
            } else {
                out[written++] = b0;
                decode_ptr += 1;
                n -= 1;
            }
        }
        while (n > 0 && decode_ptr != decode_fence) {
            out[written++] = *decode_ptr++;
            --n;
        }
        return written;
    }

private:
    void scan_length_prefixed(unsigned int prefix_size) {
        const auto left = static_cast<std::size_t>(fence - begin);
        if (left < prefix_size + 2) {
            cursor = begin;
            need_more_data = true;
            return;
        }
        for (unsigned int i = 0; i < prefix_size; ++i) {
            nal_length = nal_length << 8 | begin[i];
        }
        if (nal_length == 0) {
            cursor = fence;
            do_give_up();
            return;
        }
        const bool complete = prefix_size + std::size_t{nal_length} <= left;
        frame_begin = begin;
        payload_length = nal_length - 2;
        nal_begin = begin + prefix_size;
        payload_begin = begin + prefix_size + 2;
        cursor = complete ? begin + prefix_size + nal_length : fence;
        length_known = true;
        decode_header(nal_begin[0], nal_begin[1]);
        if (!nal.valid) {
            do_give_up();
            return;
        }
        found = true;
        if (!complete) {
            cursor = frame_begin;
            need_more_data = true;
        }
    }

    void decode_header(unsigned char first, unsigned char second) {
        nal.valid = first < 0x80;
        if (nal.valid) {
            nal.nal_unit_type = static_cast<h265_nal_unit_type>(first / 2);
            nal.nuh_layer_id = static_cast<unsigned char>(first % 2 * 32 + second / 8);
            nal.nuh_temporal_id_plus1 = second % 8;
        }
    }

    void rewind() {
        if (!found) {
            return;
        }
        decode_ptr = payload_begin;
        decode_fence = fence;
        if (length_known) {
            const auto left = static_cast<std::size_t>(fence - payload_begin);
            const std::size_t size = nal_length < 2 ? 0 : payload_length;
            decode_fence = payload_begin + std::min(left, size);
        }
    }

    void do_give_up() {
        found = false;
        gave_up = true;
        frame_begin = nullptr;
        nal_begin = nullptr;
        payload_begin = nullptr;
        nal_length = 0;
        payload_length = 0;
    }
};

// The fields have the names and the meaning of those of h265_nal_writer.
struct bytewise_writer {
    h2645_common_nalfmt nalfmt = nalfmt_none;
    unsigned char* buffer = nullptr;
    unsigned char* write = nullptr;
    unsigned char* fence = nullptr;

    bytewise_writer(unsigned char* first, unsigned char* last, h2645_common_nalfmt format)
        : nalfmt(format), buffer(first), write(first), fence(last) {}

    std::size_t block_encode(const unsigned char* data, std::size_t n, const h265_nal& nal,
                             unsigned int zero_bytes) {
        unsigned char* const start = write;
        if (buffer == nullptr || write >= fence || !put_unit(data, n, nal, zero_bytes)) {
            write = start;
            return 0;
        }
        return static_cast<std::size_t>(write - start);
    }

private:
    bool put_unit(const unsigned char* data, std::size_t n, const h265_nal& nal,
                  unsigned int zero_bytes) {
        unsigned int prefix_size = 0;
        switch (nalfmt) {
            case nalfmt_none:
                return false;
            case nalfmt_annex_b:
                for (unsigned int i = 0; i < zero_bytes; ++i) {
                    if (!put(0)) {
                        return false;
                    }
                }
                if (!put(0) || !put(0) || !put(1)) {
                    return false;
                }
                break;
            case nalfmt_length8:
            case nalfmt_length16:
            case nalfmt_length24:
            case nalfmt_length32:
                prefix_size = nalfmt;
                if (room() < prefix_size) {
                    return false;
                }
                write += prefix_size;
                break;
            default:
                break;
        }

        unsigned char* const unit = write;
        const unsigned int header = nal.encode_header();
        if (!put(header >> 8 & 0xFF) || !put(header & 0xFF) || !put_escaped(data, n)) {
            return false;
        }

        std::size_t length = static_cast<std::size_t>(write - unit);
        for (unsigned int i = 1; i <= prefix_size; ++i) {
            *(unit - i) = static_cast<unsigned char>(length & 0xFF);
            length >>= 8;
        }
        return prefix_size == 0 || length == 0;
    }

    bool put_escaped(const unsigned char* data, std::size_t n) {
        std::size_t p = 0;
        while (n - p >= 3) {
            if (data[p] == 0 && data[p + 1] == 0 && data[p + 2] <= 3) {
                if (!put(0) || !put(0) || !put(3)) {
                    return false;
                }
                p += 2;
            } else {
                if (!put(data[p])) {
                    return false;
                }
                p += 1;
            }
        }
        if (nalfmt == nalfmt_annex_b && n - p >= 2 && data[p] == 0 && data[p + 1] == 0) {
            if (!put(0) || !put(0) || !put(3)) {
                return false;
            }
            p += 2;
        }
        while (p < n) {
            if (!put(data[p])) {
                return false;
            }
            p += 1;
        }
        return true;
    }

    std::size_t room() const { return static_cast<std::size_t>(fence - write); }

    bool put(unsigned int byte) {
        if (write == fence) {
            return false;
        }
        *write++ = static_cast<unsigned char>(byte);
        return true;
    }
};

}  // namespace kovran::test

#endif  // KOVRAN_TESTS_SUPPORT_BYTEWISE_FRAMING_H
