#ifndef KOVRAN_H265_SEI_H265_T35_USER_DATA_H
#define KOVRAN_H265_SEI_H265_T35_USER_DATA_H

#include <kovran/export.h>
#include <kovran/h265/sei/h265_nal_sei_user_data_registered_itu_t_t35.h>

#include <cstddef>

namespace kovran {

// What user data of ITU-T T.35 carries, as far as the codes that it begins with tell.
enum class h265_t35_kind {
    a53_captions,      // h265_a53_captions
    bar_data,          // h265_bar_data
    afd,               // h265_afd
    st2094_10,         // SMPTE ST 2094-10 metadata, in the form of ATSC A/341
    hdr10_plus,        // h265_hdr10_plus
    sl_hdr,            // ETSI TS 103 433
    dolby_vision_rpu,  // registered by Dolby
    smpte_other,       // registered by SMPTE
    other,
};

// The codes at the beginning of user data of ITU-T T.35.
struct h265_t35_user_data {
    unsigned char country = 0;    // itu_t_t35_country_code
    unsigned short provider = 0;  // the code that the country's registrar gave the provider
    h265_t35_kind kind = h265_t35_kind::other;

    // Where the data of the application begins in itu_t_t35_payload_byte, behind all codes.
    std::size_t data_begin = 0;

    bool valid = false;  // the latest parse succeeded

    // False, with `valid` false: there are too few bytes for the code of a provider.
    KOVRAN_API bool parse(const h265_nal_sei_user_data_registered_itu_t_t35& user_data);
};

// Names for display. "" for countries and providers that have none here.
[[nodiscard]] KOVRAN_API const char* h265_t35_kind_name(h265_t35_kind kind);
[[nodiscard]] KOVRAN_API const char* h265_t35_country_name(unsigned char country);
[[nodiscard]] KOVRAN_API const char* h265_t35_provider_name(unsigned char country,
                                                            unsigned short provider);

}  // namespace kovran

#endif  // KOVRAN_H265_SEI_H265_T35_USER_DATA_H
