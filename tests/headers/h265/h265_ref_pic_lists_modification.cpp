#include <kovran/h265/h265_ref_pic_lists_modification.h>

// A slice segment header holds this record: its header includes this one, and its type is
// incomplete here.
bool read(kovran::h265_ref_pic_lists_modification& lists,
          const kovran::h265_slice_segment_header& slice) {
    kovran::h2645_common_bitreader bits;
    return lists.parse(bits, slice) && lists.parse_standard(bits, slice);
}

int main() {
    const kovran::h265_ref_pic_lists_modification lists;
    return lists.valid ? 1 : 0;
}
