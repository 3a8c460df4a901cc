#include <kovran/h265/h265_pps_range_extension.h>

int main() {
    const kovran::h265_pps_range_extension extension;
    return extension.chroma_qp_offset_list_enabled_flag ? 1 : 0;
}
