#include <kovran/h265/h265_picture_rate.h>

int main() {
    const kovran::h265_nal_sps sps;
    return kovran::h265_picture_rate_of(sps, nullptr).is_known() ? 1 : 0;
}
