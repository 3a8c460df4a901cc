#include "units/type_name.h"

#include <string_view>

namespace kovran::inspect {
std::string type_name(h265_nal_unit_type type) {
    const std::string number = std::to_string(static_cast<unsigned int>(type));
    // The library's text for these is a description that several of them share.
    if (type >= RSV_IRAP_VCL22 && type <= RSV_IRAP_VCL23) {
        return "RSV_IRAP_VCL" + number;
    }
    if (type >= RSV_VCL24 && type <= RSV_VCL31) {
        return "RSV_VCL" + number;
    }
    if (type <= SUFFIX_SEI_NUT) {
        const std::string_view name_and_meaning = h265_nal_unit_type_to_str(type);
        return std::string(name_and_meaning.substr(0, name_and_meaning.find(',')));
    }
    constexpr unsigned int first_unspecified = 48;
    return (type < first_unspecified ? "RSV_NVCL" : "UNSPEC") + number;
}

}  // namespace kovran::inspect
