#include <kovran/h265/h265_hrd_rates.h>

int main() {
    const kovran::h265_hrd_parameters hrd;
    kovran::h265_nal_sub_layer_hrd_parameters sub_layer;
    sub_layer.bit_rate_value_minus1 = {0};
    sub_layer.cpb_size_value_minus1 = {0};
    sub_layer.cbr_flag = {true};
    return kovran::h265_hrd_rates_of(hrd, sub_layer, 0).BitRate == 64 ? 0 : 1;
}
