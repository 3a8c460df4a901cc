#include <kovran/h265/h265_st_ref_pic_set.h>

// An SPS holds these sets: its header includes this one, and its type is incomplete here.
bool read(kovran::h265_st_ref_pic_set& set, const kovran::h265_nal_sps& sps) {
    kovran::h2645_common_bitreader bits;
    const std::vector<kovran::h265_st_ref_pic_set> others;
    return set.parse(bits, sps, /*idx=*/0, others) &&
           set.parse_standard(bits, sps, /*idx=*/0, others);
}

int main() {
    const kovran::h265_st_ref_pic_set set;
    return set.valid ? 1 : 0;
}
