#include <kovran/h265/h265_sps_multilayer_extension.h>

int main() {
    const kovran::h265_sps_multilayer_extension extension;
    return extension.inter_view_mv_vert_constraint_flag ? 1 : 0;
}
