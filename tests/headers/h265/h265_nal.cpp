#include <kovran/h265/h265_nal.h>

int main() {
    kovran::h265_nal nal;
    nal.decode_header(0x4601);
    const bool right = nal.nal_unit_type == kovran::AUD_NUT && nal.encode_header() == 0x4601;
    const char* const name = kovran::h265_nal_unit_type_to_str(kovran::AUD_NUT);
    return right && name == kovran::h265_nal_unit_type_str[kovran::AUD_NUT] ? 0 : 1;
}
