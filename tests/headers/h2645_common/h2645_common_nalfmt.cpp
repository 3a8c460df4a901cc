#include <kovran/h2645_common/h2645_common_nalfmt.h>

int main() {
    const kovran::h2645_common_nalfmt format = kovran::nalfmt_length32;
    return format == 4 ? 0 : 1;
}
