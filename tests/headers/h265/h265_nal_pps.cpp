#include <kovran/h265/h265_nal_pps.h>

int main() {
    kovran::h2645_common_bitreader bits;
    kovran::h2645_common_base_store<kovran::h265_nal_sps> sps_store;
    kovran::h265_nal_pps pps;
    return pps.parse(bits, sps_store) || pps.parse_standard(bits, sps_store) ? 1 : 0;
}
