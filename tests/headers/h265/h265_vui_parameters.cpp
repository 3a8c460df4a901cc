#include <kovran/h265/h265_vui_parameters.h>

// An SPS holds this record: its header includes this one, and its type is incomplete here.
bool read(kovran::h265_vui_parameters& vui, kovran::h265_nal_sps& sps) {
    kovran::h2645_common_bitreader bits;
    return vui.parse(bits, sps) && vui.parse_standard(bits, sps);
}

int main() {
    kovran::h265_vui_parameters vui;
    vui.video_format = kovran::h265_video_format_pal;
    const char* const name = kovran::h265_video_format_to_str(kovran::h265_video_format_pal);
    const bool square = kovran::h265_sample_aspect_ratio_of(1).width == 1;
    return vui.video_format_to_str() == name && square ? 0 : 1;
}
