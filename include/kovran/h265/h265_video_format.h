#ifndef KOVRAN_H265_H265_VIDEO_FORMAT_H
#define KOVRAN_H265_H265_VIDEO_FORMAT_H

#include <kovran/export.h>

namespace kovran {

// video_format, table E.2.
enum h265_video_format : unsigned int {
    h265_video_format_component = 0,
    h265_video_format_pal = 1,
    h265_video_format_ntsc = 2,
    h265_video_format_secam = 3,
    h265_video_format_mac = 4,
    h265_video_format_unspecified = 5,
};

// The name of a format, for display; "?" for any other value, never null.
[[nodiscard]] KOVRAN_API const char* h265_video_format_to_str(h265_video_format format);

}  // namespace kovran

#endif  // KOVRAN_H265_H265_VIDEO_FORMAT_H
