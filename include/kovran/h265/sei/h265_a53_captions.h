#ifndef KOVRAN_H265_SEI_H265_A53_CAPTIONS_H
#define KOVRAN_H265_SEI_H265_A53_CAPTIONS_H

#include <kovran/export.h>
#include <kovran/h265/sei/h265_nal_sei_user_data_registered_itu_t_t35.h>

#include <vector>

namespace kovran {

// Closed captions in user data of ITU-T T.35, cc_data() of ATSC A/53 Part 4.
struct h265_a53_captions {
    struct cc_t {
        bool cc_valid = false;        // 1 bit
        unsigned char cc_type = 0;    // 2 bits: 0 and 1 CEA-608 fields, 2 and 3 CEA-708 packets
        unsigned char cc_data_1 = 0;  // 8 bits
        unsigned char cc_data_2 = 0;  // 8 bits
    };

    bool process_em_data_flag = false;  // 1 bit
    bool process_cc_data_flag = false;  // 1 bit: cc_data is to be shown
    bool additional_data_flag = false;  // 1 bit: more follows, which is not read
    unsigned char cc_count = 0;         // 5 bits
    unsigned char em_data = 0;          // 8 bits
    std::vector<cc_t> cc_data;          // cc_count entries

    bool valid = false;  // the latest parse succeeded

    // Reads the captions in a record that is reset first; marker bits may have any value. False,
    // with `valid` false: the user data is of another kind, its data ends, or there is no memory.
    KOVRAN_API bool parse(const h265_nal_sei_user_data_registered_itu_t_t35& user_data);
};

}  // namespace kovran

#endif  // KOVRAN_H265_SEI_H265_A53_CAPTIONS_H
