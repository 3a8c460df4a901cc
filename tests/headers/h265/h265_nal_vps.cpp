#include <kovran/h265/h265_nal_vps.h>

int main() {
    kovran::h2645_common_bitreader bits;
    kovran::h265_nal_vps vps;
    return vps.parse(bits) || vps.parse_standard(bits) ? 1 : 0;
}
