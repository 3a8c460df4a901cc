#include <kovran/h265/sei/h265_bar_data.h>

#include "h265/sei/t35_application_data.h"

namespace kovran {

bool h265_bar_data::parse(const h265_nal_sei_user_data_registered_itu_t_t35& user_data) {
    *this = {};
    auto reader = t35_application_data(user_data, h265_t35_kind::bar_data);
    if (!reader) {
        return false;
    }
    top_bar_flag = reader->get<bool>(1);
    bottom_bar_flag = reader->get<bool>(1);
    left_bar_flag = reader->get<bool>(1);
    right_bar_flag = reader->get<bool>(1);
    reader->skip(4);  // reserved
    const auto read_bar = [&reader](bool flag, unsigned short& number) {
        if (flag) {
            reader->skip(2);  // marker_bits
            number = reader->get<unsigned short>(14);
        }
    };
    read_bar(top_bar_flag, line_number_end_of_top_bar);
    read_bar(bottom_bar_flag, line_number_start_of_bottom_bar);
    read_bar(left_bar_flag, pixel_number_end_of_left_bar);
    read_bar(right_bar_flag, pixel_number_start_of_right_bar);
    valid = t35_data_holds(*reader, 0);
    return valid;
}

}  // namespace kovran
