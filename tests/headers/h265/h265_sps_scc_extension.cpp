#include <kovran/h265/h265_sps_scc_extension.h>

int main() {
    const kovran::h265_sps_scc_extension extension;
    return extension.palette_mode_enabled_flag ? 1 : 0;
}
