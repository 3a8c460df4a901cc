#include <kovran/h265/h265_scaling_list_data.h>

int main() {
    kovran::h2645_common_bitreader bits;
    kovran::h265_scaling_list_data lists;
    const bool own = lists.parse(bits);
    // Without bits the first list would be predicted from one before it.
    return own && !lists.parse_standard(bits) ? 0 : 1;
}
