#include <kovran/h265/sei/h265_afd.h>

#include "h265/sei/t35_application_data.h"

namespace kovran {

bool h265_afd::parse(const h265_nal_sei_user_data_registered_itu_t_t35& user_data) {
    *this = {};
    auto reader = t35_application_data(user_data, h265_t35_kind::afd);
    if (!reader) {
        return false;
    }
    reader->skip(1);
    active_format_flag = reader->get<bool>(1);
    reader->skip(6);
    if (active_format_flag) {
        reader->skip(4);
        active_format = reader->get<unsigned char>(4);
    }
    valid = t35_data_holds(*reader, 0);
    return valid;
}

}  // namespace kovran
