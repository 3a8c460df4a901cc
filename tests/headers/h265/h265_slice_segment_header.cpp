#include <kovran/h265/h265_slice_segment_header.h>

int main() {
    kovran::h2645_common_bitreader bits;
    kovran::h2645_common_base_store<kovran::h265_nal_pps> pps_store;
    kovran::h2645_common_base_store<kovran::h265_nal_sps> sps_store;
    kovran::h2645_common_base_store<kovran::h265_nal_vps> vps_store;
    kovran::h265_slice_segment_header slice;
    bool right = !slice.parse(bits, pps_store, sps_store, vps_store, kovran::TRAIL_R);
    right = right && !slice.parse_standard(bits, pps_store, sps_store, vps_store, kovran::TRAIL_R);
    slice.take_over(slice);
    right = right && slice.SliceQpY(kovran::h265_nal_pps()) == 26 && slice.MaxNumMergeCand() == 5;
    return right && slice.slice_type_to_str()[0] != '\0' ? 0 : 1;
}
