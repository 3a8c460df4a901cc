#ifndef KOVRAN_H265_SEI_H265_BAR_DATA_H
#define KOVRAN_H265_SEI_H265_BAR_DATA_H

#include <kovran/export.h>
#include <kovran/h265/sei/h265_nal_sei_user_data_registered_itu_t_t35.h>

namespace kovran {

// Bar data in user data of ITU-T T.35, bar_data() of ATSC A/53 Part 4: the bars at the edges of the
// picture, above and below it or beside it.
struct h265_bar_data {
    bool top_bar_flag = false;     // 1 bit
    bool bottom_bar_flag = false;  // 1 bit
    bool left_bar_flag = false;    // 1 bit
    bool right_bar_flag = false;   // 1 bit

    // 14 bits each, behind two marker bits, when the flag is set.
    unsigned short line_number_end_of_top_bar = 0;
    unsigned short line_number_start_of_bottom_bar = 0;
    unsigned short pixel_number_end_of_left_bar = 0;
    unsigned short pixel_number_start_of_right_bar = 0;

    bool valid = false;  // the latest parse succeeded

    // Reads the bars in a record that is reset first; reserved and marker bits may have any value.
    // False, with `valid` false: the user data is of another kind, or its data ends.
    KOVRAN_API bool parse(const h265_nal_sei_user_data_registered_itu_t_t35& user_data);
};

}  // namespace kovran

#endif  // KOVRAN_H265_SEI_H265_BAR_DATA_H
