#include <kovran/h265/h265_colour_mapping_table.h>

int main() {
    const kovran::h265_colour_mapping_table table;
    return table.split_octant_flag ? 1 : 0;
}
