#include <kovran/h265/h265_nal_sei_active_parameter_sets.h>

int main() {
    kovran::h2645_common_bitreader bits;
    kovran::h2645_common_base_store<kovran::h265_nal_vps> vps_store;
    kovran::h265_nal_sei_active_parameter_sets sets;
    return sets.parse(bits, vps_store) || sets.parse_standard(bits, vps_store) ? 1 : 0;
}
