#include <kovran/h265/h265_tiles.h>

int main() {
    return 0;
}
