#include <kovran/h265/h265_nal_sei_buffering_period.h>

int main() {
    kovran::h2645_common_bitreader bits;
    const kovran::h2645_common_base_store<kovran::h265_nal_sps> sps_store;
    kovran::h265_nal_sei_buffering_period period;
    return period.parse(bits, sps_store) || period.parse_standard(bits, sps_store) ? 1 : 0;
}
