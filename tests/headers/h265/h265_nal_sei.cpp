#include <kovran/h265/h265_nal_sei.h>

int main() {
    const char* const names[] = {
        kovran::h265_nal_sei_payload_type_prefix_to_str(
            kovran::h265_nal_sei_payload_type_prefix_pic_timing),
        kovran::h265_nal_sei_payload_type_suffix_to_str(
            kovran::h265_nal_sei_payload_type_suffix_decoded_picture_hash),
        kovran::h265_nal_sei_payload_type_to_str(kovran::h265_nal_sei_payload_type_none,
                                                 kovran::PREFIX_SEI_NUT),
    };
    return names[0][0] == 'p' && names[1][0] == 'd' && names[2][0] == '\0' ? 0 : 1;
}
