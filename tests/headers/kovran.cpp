#include <kovran/kovran.h>

int main() {
    kovran::h265_nal_reader reader(kovran::nalfmt_annex_b);
    reader.scan(nullptr, nullptr);
    kovran::h2645_common_bitreader bits;
    kovran::h2645_common_base_store<kovran::h265_nal_vps> vps_store;
    kovran::h265_nal_sps sps;
    return reader.found || sps.parse(bits, vps_store) ? 1 : 0;
}
