#include <kovran/h265/h265_video_format.h>

int main() {
    const char* const name = kovran::h265_video_format_to_str(kovran::h265_video_format_pal);
    return name[0] == 'P' ? 0 : 1;
}
