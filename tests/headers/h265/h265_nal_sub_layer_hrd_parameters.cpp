#include <kovran/h265/h265_nal_sub_layer_hrd_parameters.h>

// HRD parameters hold this record: their header includes this one, and their type is incomplete
// here.
bool read(kovran::h265_nal_sub_layer_hrd_parameters& sub_layer,
          const kovran::h265_hrd_parameters& hrd) {
    kovran::h2645_common_bitreader bits;
    return sub_layer.parse(/*subLayerId=*/0, /*cpb_count=*/1, hrd, bits) &&
           sub_layer.parse_standard(/*subLayerId=*/0, /*cpb_count=*/1, hrd, bits);
}

int main() {
    const kovran::h265_nal_sub_layer_hrd_parameters sub_layer;
    return sub_layer.valid ? 1 : 0;
}
