#include <kovran/h265/h265_sps_3d_extension.h>

int main() {
    const kovran::h265_sps_3d_extension extension;
    return extension.skip_intra_enabled_flag[1] ? 1 : 0;
}
