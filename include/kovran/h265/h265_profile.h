#ifndef KOVRAN_H265_H265_PROFILE_H
#define KOVRAN_H265_H265_PROFILE_H

#include <kovran/export.h>

namespace kovran {

struct h265_profile {
    // A level as people write it: 93 is level 3.1, clause A.4.1.
    struct level_decomposed {
        unsigned char major = 0;
        unsigned char minor = 0;
        unsigned char remainder = 0;  // 0 for every level of the standard

        // Splits any general_level_idc or sub_layer_level_idc into these parts.
        KOVRAN_API void parse(unsigned char level_idc);
    };
};

}  // namespace kovran

#endif  // KOVRAN_H265_H265_PROFILE_H
