#include <kovran/h265/h265_delta_dlt.h>

int main() {
    const kovran::h265_delta_dlt delta;
    return delta.min_diff_minus1;
}
