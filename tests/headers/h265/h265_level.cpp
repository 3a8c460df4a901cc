#include <kovran/h265/h265_level.h>

int main() {
    return 0;
}
