#include <kovran/h265/h265_hrd_rates.h>

int main() {
    return 0;
}
