#include <kovran/h265/h265_video_format.h>

namespace kovran {

const char* h265_video_format_to_str(h265_video_format format) {
    switch (format) {
        case h265_video_format_component:
            return "Component";
        case h265_video_format_pal:
            return "PAL";
        case h265_video_format_ntsc:
            return "NTSC";
        case h265_video_format_secam:
            return "SECAM";
        case h265_video_format_mac:
            return "MAC";
        case h265_video_format_unspecified:
            return "Unspecified";
    }
    return "?";
}

}  // namespace kovran
