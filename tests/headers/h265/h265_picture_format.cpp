#include <kovran/h265/h265_picture_format.h>

int main() {
    return 0;
}
