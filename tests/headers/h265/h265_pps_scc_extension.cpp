#include <kovran/h265/h265_pps_scc_extension.h>

int main() {
    const kovran::h265_pps_scc_extension extension;
    return extension.pps_curr_pic_ref_enabled_flag ? 1 : 0;
}
