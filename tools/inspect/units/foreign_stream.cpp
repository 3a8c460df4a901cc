#include "units/foreign_stream.h"

#include <kovran/h265/h265_nal.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>

#include <fmt/format.h>

namespace kovran::inspect {
namespace {

constexpr std::ptrdiff_t header_size = 2;

// A NAL unit header of H.265's base layer, clause 7.3.1.2, up to the last type that is in use.
bool is_base_layer_header(const unsigned char* header) {
    const unsigned int forbidden_bit_and_layer = (header[0] & 0x81U) | (header[1] & 0xF8U);
    const unsigned int temporal_id_plus1 = header[1] & 7U;
    return forbidden_bit_and_layer == 0 && temporal_id_plus1 != 0 &&
           header[0] >> 1 <= SUFFIX_SEI_NUT;
}

bool is_parameter_set_header(const unsigned char* header) {
    const unsigned int type = header[0] >> 1;
    return is_base_layer_header(header) && type >= VPS_NUT && type <= PPS_NUT && header[1] == 1;
}

// As the first unit of a sequence, or of a sample of a file.
bool is_first_header(const unsigned char* header) {
    const unsigned int type = header[0] >> 1;
    return is_base_layer_header(header) &&
           ((type >= BLA_W_LP && type <= CRA_NUT) || (type >= VPS_NUT && type <= AUD_NUT) ||
            type == PREFIX_SEI_NUT);
}

// Which parameter sets follow the start codes.
struct parameter_sets_seen {
    bool h265 = false;
    bool h264_sps = false;
    bool h264_pps = false;
    bool h266_sps = false;
    bool h266_pps = false;

    void add(const unsigned char* header) {
        constexpr unsigned int forbidden_bit_and_type = 0x9F;
        constexpr unsigned int nal_ref_idc = 0x60;
        const unsigned int h264_type =
            (header[0] & nal_ref_idc) != 0 ? header[0] & forbidden_bit_and_type : 0;
        h265 = h265 || is_parameter_set_header(header);
        h264_sps = h264_sps || (h264_type == 7 && is_h264_profile(header[1]));
        h264_pps = h264_pps || h264_type == 8;
        // Layer 0, then five bits of type.
        h266_sps = h266_sps || (header[0] == 0 && header[1] >> 3 == 15);
        h266_pps = h266_pps || (header[0] == 0 && header[1] >> 3 == 16);
    }

private:
    static bool is_h264_profile(unsigned int profile_idc) {
        constexpr unsigned int profiles[] = {44,  66,  77,  83,  86,  88,  100, 110,
                                             118, 122, 128, 134, 135, 138, 139, 244};
        return std::find(std::begin(profiles), std::end(profiles), profile_idc) !=
               std::end(profiles);
    }
};

parameter_sets_seen parameter_sets(const unsigned char* first, const unsigned char* last) {
    constexpr unsigned char start_code[] = {0, 0, 1};
    constexpr std::ptrdiff_t start_code_size = std::size(start_code);
    parameter_sets_seen seen;
    for (;;) {
        first = std::search(first, last, std::begin(start_code), std::end(start_code));
        if (last - first < start_code_size + header_size) {
            return seen;
        }
        first += start_code_size;
        seen.add(first);
    }
}

bool has_text(const unsigned char* first, const unsigned char* last, std::ptrdiff_t place,
              std::string_view text) {
    return last - first >= place + static_cast<std::ptrdiff_t>(text.size()) &&
           std::equal(text.begin(), text.end(), first + place,
                      [](char a, unsigned char b) { return static_cast<unsigned char>(a) == b; });
}

bool is_transport_stream(const unsigned char* first, const unsigned char* last) {
    constexpr unsigned char sync_byte = 0x47;
    const auto has_packets = [&](std::ptrdiff_t place, std::ptrdiff_t size) {
        return last - first > place + 2 * size && first[place] == sync_byte &&
               first[place + size] == sync_byte && first[place + 2 * size] == sync_byte;
    };
    return has_packets(0, 188) || has_packets(4, 192);  // with a time stamp before each packet
}

std::string extract(const std::string& file) {
    return fmt::format("extract it with: ffmpeg -i {} -c copy -bsf:v hevc_mp4toannexb out.hevc",
                       file);
}

// Files of boxes, each with a size and a type of four letters.
std::optional<foreign_stream> box_file(const unsigned char* first, const unsigned char* last,
                                       const std::string& file) {
    constexpr std::ptrdiff_t type = 4;
    constexpr std::ptrdiff_t brand = 8;
    if (has_text(first, last, type, "ftyp")) {
        for (const char* const heif :
             {"heic", "heix", "heim", "heis", "hevc", "hevx", "mif1", "msf1"}) {
            if (has_text(first, last, brand, heif)) {
                return foreign_stream{"an HEIF file", "extract the H.265 image item from it first"};
            }
        }
        if (has_text(first, last, brand, "qt  ")) {
            return foreign_stream{"a MOV file", extract(file)};
        }
        return foreign_stream{"an MP4 file", extract(file)};
    }
    for (const char* const box : {"moov", "mdat", "wide", "free", "skip"}) {
        if (has_text(first, last, type, box)) {
            return foreign_stream{"a MOV file", extract(file)};
        }
    }
    return std::nullopt;
}

// The size of the big-endian lengths before the units, or 0 where the bytes are no such units.
std::ptrdiff_t length_size(const unsigned char* first, const unsigned char* last) {
    for (const std::ptrdiff_t size : {4, 3, 2, 1}) {
        unsigned int headers = 0;
        bool plausible = true;
        const unsigned char* unit = first;
        while (plausible && last - unit >= size + header_size) {
            std::uint64_t length = 0;
            for (std::ptrdiff_t i = 0; i < size; ++i) {
                length = length << 8 | unit[i];
            }
            const unsigned char* const header = unit + size;
            plausible = length > header_size &&
                        (headers == 0 ? is_first_header(header) : is_base_layer_header(header));
            ++headers;
            const auto left = static_cast<std::uint64_t>(last - header);
            unit = header + std::min(length, left);
        }
        if (plausible && headers > 1) {
            return size;
        }
    }
    return 0;
}

}  // namespace

bool begins_as_h265(const unsigned char* first, const unsigned char* last) {
    const unsigned char* const one =
        std::find_if(first, last, [](unsigned char byte) { return byte != 0; });
    if (one - first < 2 || last - one <= header_size || *one != 1) {
        return false;
    }
    // In H.264 the byte 06 begins an SEI unit, in H.266 the byte 00 any unit of layer 0.
    const unsigned char* const header = one + 1;
    const unsigned int type = header[0] >> 1;
    return is_base_layer_header(header) && type != TRAIL_N && type != TSA_R;
}

std::optional<foreign_stream> find_foreign_stream(const unsigned char* first,
                                                  const unsigned char* last,
                                                  const std::string& file) {
    if (first == last) {
        return foreign_stream{"empty", "check the program that wrote it"};
    }
    // Before all others, as its packets have start codes in them.
    if (is_transport_stream(first, last)) {
        return foreign_stream{"an MPEG transport stream",
                              fmt::format("extract it with: ffmpeg -i {} -c copy out.hevc", file)};
    }
    const parameter_sets_seen seen = parameter_sets(first, last);
    if (seen.h265) {
        return std::nullopt;
    }
    if (auto boxes = box_file(first, last, file)) {
        return boxes;
    }
    if (has_text(first, last, 0, "\x1A\x45\xDF\xA3")) {
        return foreign_stream{"a Matroska or WebM file", extract(file)};
    }
    if (const std::ptrdiff_t size = length_size(first, last); size != 0) {
        return foreign_stream{"a stream of NAL units with lengths before them",
                              fmt::format("read it with --format length{}, copy it with --from "
                                          "length{}",
                                          8 * size, 8 * size)};
    }
    if (seen.h264_sps && seen.h264_pps) {
        return foreign_stream{"an H.264 stream", "kovran reads only H.265"};
    }
    if (seen.h266_sps && seen.h266_pps) {
        return foreign_stream{"an H.266 stream", "kovran reads only H.265"};
    }
    return std::nullopt;
}

}  // namespace kovran::inspect
