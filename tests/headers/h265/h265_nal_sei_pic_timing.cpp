#include <kovran/h265/h265_nal_sei_pic_timing.h>

int main() {
    kovran::h2645_common_bitreader bits;
    const kovran::h265_nal_sps sps;
    const kovran::h2645_common_base_store<kovran::h265_nal_sps> sps_store;
    kovran::h265_nal_sei_pic_timing timing;
    bool right = timing.parse(bits, sps) && timing.parse_standard(bits, sps);
    right = right && timing.pic_struct_to_str()[0] != '\0' &&
            timing.source_scan_type_to_str()[0] != '\0';
    return right && !timing.parse(bits, sps_store) && !timing.parse_standard(bits, sps_store) ? 0
                                                                                              : 1;
}
