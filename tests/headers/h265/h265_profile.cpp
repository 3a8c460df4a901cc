#include <kovran/h265/h265_profile.h>

int main() {
    kovran::h265_profile::level_decomposed level;
    level.parse(93);
    return level.major == 3 && level.minor == 1 ? 0 : 1;
}
