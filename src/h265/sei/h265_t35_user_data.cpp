#include <kovran/h265/sei/h265_t35_user_data.h>

#include <string_view>
#include <vector>

namespace kovran {
namespace {

using namespace std::string_view_literals;

constexpr unsigned char t35_china = 0x26;
constexpr unsigned char t35_united_kingdom = 0xB4;
constexpr unsigned char t35_united_states = 0xB5;

constexpr unsigned short t35_atsc = 0x0031;
constexpr unsigned short t35_etsi = 0x003A;
constexpr unsigned short t35_dolby = 0x003B;
constexpr unsigned short t35_samsung = 0x003C;
constexpr unsigned short t35_smpte = 0x0090;

// All kinds are registered in the United States.
struct t35_application {
    unsigned short provider;
    std::string_view code;  // behind the provider's
    h265_t35_kind kind;
};
constexpr t35_application t35_applications[] = {
    {t35_atsc, "GA94\x03"sv, h265_t35_kind::a53_captions},
    {t35_atsc, "GA94\x06"sv, h265_t35_kind::bar_data},
    {t35_atsc, "GA94\x09"sv, h265_t35_kind::st2094_10},
    {t35_atsc, "DTG1"sv, h265_t35_kind::afd},
    {t35_samsung, "\x00\x01\x04"sv, h265_t35_kind::hdr10_plus},
    {t35_etsi, "\x00"sv, h265_t35_kind::sl_hdr},
    {t35_etsi, "\x02"sv, h265_t35_kind::sl_hdr},
    {t35_dolby, ""sv, h265_t35_kind::dolby_vision_rpu},
    {t35_smpte, ""sv, h265_t35_kind::smpte_other},
};

struct t35_provider {
    unsigned char country;
    unsigned short code;
    const char* name;
};
constexpr t35_provider t35_providers[] = {
    {t35_china, 0x0004, "CUVA"},
    {t35_united_kingdom, 0x5000, "V-Nova"},
    {t35_united_states, t35_atsc, "ATSC"},
    {t35_united_states, t35_etsi, "ETSI"},
    {t35_united_states, t35_dolby, "Dolby"},
    {t35_united_states, t35_samsung, "Samsung"},
    {t35_united_states, t35_smpte, "SMPTE"},
    {t35_united_states, 0x5890, "AOM"},
};

bool t35_code_stands_at(const std::vector<unsigned char>& bytes, std::size_t begin,
                        std::string_view code) {
    if (bytes.size() - begin < code.size()) {
        return false;
    }
    for (std::size_t i = 0; i < code.size(); ++i) {
        if (bytes[begin + i] != static_cast<unsigned char>(code[i])) {
            return false;
        }
    }
    return true;
}

}  // namespace

bool h265_t35_user_data::parse(const h265_nal_sei_user_data_registered_itu_t_t35& user_data) {
    *this = {};
    country = user_data.itu_t_t35_country_code;
    const std::vector<unsigned char>& bytes = user_data.itu_t_t35_payload_byte;
    // The country code of the United Kingdom has a second byte.
    const std::size_t provider_begin = country == t35_united_kingdom ? 1 : 0;
    if (bytes.size() < provider_begin + 2) {
        return false;
    }
    provider = static_cast<unsigned short>(bytes[provider_begin] << 8U | bytes[provider_begin + 1]);
    data_begin = provider_begin + 2;
    valid = true;
    if (country != t35_united_states) {
        return true;
    }
    for (const t35_application& each : t35_applications) {
        if (each.provider == provider && t35_code_stands_at(bytes, data_begin, each.code)) {
            kind = each.kind;
            data_begin += each.code.size();
            break;
        }
    }
    return true;
}

const char* h265_t35_kind_name(h265_t35_kind kind) {
    switch (kind) {
        case h265_t35_kind::a53_captions:
            return "A/53 captions";
        case h265_t35_kind::bar_data:
            return "bar data";
        case h265_t35_kind::afd:
            return "active format description";
        case h265_t35_kind::st2094_10:
            return "ST 2094-10";
        case h265_t35_kind::hdr10_plus:
            return "HDR10+";
        case h265_t35_kind::sl_hdr:
            return "SL-HDR";
        case h265_t35_kind::dolby_vision_rpu:
            return "Dolby Vision RPU";
        case h265_t35_kind::smpte_other:
            return "SMPTE metadata";
        case h265_t35_kind::other:
            break;
    }
    return "other";
}

const char* h265_t35_country_name(unsigned char country) {
    switch (country) {
        case t35_china:
            return "China";
        case t35_united_kingdom:
            return "United Kingdom";
        case t35_united_states:
            return "United States";
        default:
            return "";
    }
}

const char* h265_t35_provider_name(unsigned char country, unsigned short provider) {
    for (const t35_provider& each : t35_providers) {
        if (each.country == country && each.code == provider) {
            return each.name;
        }
    }
    return "";
}

}  // namespace kovran
