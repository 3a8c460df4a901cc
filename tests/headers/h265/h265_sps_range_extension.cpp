#include <kovran/h265/h265_sps_range_extension.h>

int main() {
    const kovran::h265_sps_range_extension extension;
    return extension.high_precision_offsets_enabled_flag ? 1 : 0;
}
