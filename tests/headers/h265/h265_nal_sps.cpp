#include <kovran/h265/h265_nal_sps.h>

int main() {
    kovran::h2645_common_bitreader bits;
    kovran::h2645_common_base_store<kovran::h265_nal_vps> vps_store;
    kovran::h265_nal_sps sps;
    return sps.parse(bits, vps_store) || sps.parse_standard(bits, vps_store) ? 1 : 0;
}
