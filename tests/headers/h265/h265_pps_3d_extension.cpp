#include <kovran/h265/h265_pps_3d_extension.h>

int main() {
    const kovran::h265_pps_3d_extension extension;
    return extension.dlts_present_flag ? 1 : 0;
}
