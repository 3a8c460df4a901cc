#include <kovran/h265/h265_nal_aud.h>

int main() {
    kovran::h2645_common_bitreader bits;
    kovran::h265_nal_aud aud;
    return aud.parse(bits) ? 1 : 0;
}
