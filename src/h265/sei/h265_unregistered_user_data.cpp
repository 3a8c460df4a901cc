#include <kovran/h265/sei/h265_unregistered_user_data.h>

#include <algorithm>
#include <array>
#include <cstddef>

namespace kovran {
namespace {

using uuid = std::array<unsigned char, 16>;

constexpr uuid x265 = {0x2C, 0xA2, 0xDE, 0x09, 0xB5, 0x17, 0x47, 0xDB,
                       0xBB, 0x55, 0xA4, 0xFE, 0x7F, 0xC2, 0xFC, 0x4E};
constexpr uuid kvazaar = {0x32, 0xFE, 0x46, 0x6C, 0x98, 0x41, 0x42, 0x69,
                          0xAE, 0x35, 0x6A, 0x91, 0x54, 0x9E, 0xF3, 0xF1};
constexpr uuid misp_microseconds = {0xA8, 0x68, 0x7D, 0xD4, 0xD7, 0x59, 0x37, 0x58,
                                    0xA5, 0xCE, 0xF0, 0x33, 0x8B, 0x65, 0x45, 0xF1};
// That of H.264, which some encoders keep.
constexpr uuid misp_microseconds_in_avc = {'M', 'I', 'S', 'P', 'm', 'i', 'c', 'r',
                                           'o', 's', 'e', 'c', 't', 'i', 'm', 'e'};
constexpr uuid misp_nanoseconds = {0xCF, 0x84, 0x82, 0x78, 0xEE, 0x23, 0x30, 0x6C,
                                   0x92, 0x65, 0xE8, 0xFE, 0xF2, 0x2F, 0xB8, 0xB8};

struct known_user_data {
    uuid identifier;
    const char* name;
};
constexpr std::array known = {
    known_user_data{x265, "x265"},
    known_user_data{kvazaar, "Kvazaar"},
    known_user_data{misp_microseconds, "MISP time in microseconds"},
    known_user_data{misp_microseconds_in_avc, "MISP time in microseconds"},
    known_user_data{misp_nanoseconds, "MISP time in nanoseconds"},
};

bool is_text(unsigned char byte) {
    return (byte >= ' ' && byte <= '~') || (byte >= '\t' && byte <= '\r');
}

}  // namespace

const char* h265_user_data_name(const h265_nal_sei_user_data_unregistered& user_data) {
    const auto found =
        std::find_if(known.begin(), known.end(), [&user_data](const known_user_data& each) {
            return each.identifier == user_data.uuid_iso_iec_11578;
        });
    return found != known.end() ? found->name : "";
}

std::string_view h265_user_data_text(const h265_nal_sei_user_data_unregistered& user_data) {
    const auto& bytes = user_data.user_data_payload_byte;
    const auto behind_last = std::find_if(bytes.rbegin(), bytes.rend(), [](unsigned char byte) {
                                 return byte != 0;
                             }).base();
    if (behind_last == bytes.begin() || !std::all_of(bytes.begin(), behind_last, is_text)) {
        return {};
    }
    return {reinterpret_cast<const char*>(bytes.data()),
            static_cast<std::size_t>(behind_last - bytes.begin())};
}

std::optional<std::uint64_t> h265_misp_time(const h265_nal_sei_user_data_unregistered& user_data) {
    const auto& identifier = user_data.uuid_iso_iec_11578;
    // A status byte, and two bytes of the time at a time, with 0xFF in between.
    constexpr std::array<std::size_t, 8> places = {1, 2, 4, 5, 7, 8, 10, 11};
    const auto& bytes = user_data.user_data_payload_byte;
    if ((identifier != misp_microseconds && identifier != misp_microseconds_in_avc &&
         identifier != misp_nanoseconds) ||
        bytes.size() <= places.back()) {
        return std::nullopt;
    }
    std::uint64_t time = 0;
    for (const std::size_t place : places) {
        time = time << 8 | bytes[place];
    }
    return time;
}

}  // namespace kovran
