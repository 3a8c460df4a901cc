#include <kovran/h265/h265_picture_rate.h>

int main() {
    return 0;
}
