#include <kovran/h265/h265_profile.h>

namespace kovran {

void h265_profile::level_decomposed::parse(unsigned char level_idc) {
    major = static_cast<unsigned char>(level_idc / 30);
    minor = static_cast<unsigned char>(level_idc / 3 % 10);
    remainder = level_idc % 3;
}

}  // namespace kovran
