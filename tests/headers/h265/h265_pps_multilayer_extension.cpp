#include <kovran/h265/h265_pps_multilayer_extension.h>

int main() {
    const kovran::h265_pps_multilayer_extension extension;
    return extension.colour_mapping_enabled_flag ? 1 : 0;
}
