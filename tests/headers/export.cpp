#include <kovran/export.h>

KOVRAN_API int twice(int value) {
    return 2 * value;
}

int main() {
    return twice(0);
}
