#ifndef KOVRAN_H265_SEI_H265_AFD_H
#define KOVRAN_H265_SEI_H265_AFD_H

#include <kovran/export.h>
#include <kovran/h265/sei/h265_nal_sei_user_data_registered_itu_t_t35.h>

namespace kovran {

// The active format description in user data of ITU-T T.35, afd_data() of ATSC A/53 Part 4: which
// part of the picture has something to see.
struct h265_afd {
    bool active_format_flag = false;  // 1 bit
    unsigned char active_format = 0;  // 4 bits, when active_format_flag

    bool valid = false;  // the latest parse succeeded

    // Reads the description in a record that is reset first; reserved bits may have any value.
    // False, with `valid` false: the user data is of another kind, or its data ends.
    KOVRAN_API bool parse(const h265_nal_sei_user_data_registered_itu_t_t35& user_data);
};

}  // namespace kovran

#endif  // KOVRAN_H265_SEI_H265_AFD_H
