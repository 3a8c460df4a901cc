#include <kovran/h2645_common/h2645_common_read_xostylesei_vlu32.h>

int main() {
    unsigned char bytes[] = {0xFF, 0x01};
    unsigned char* next = bytes;
    const unsigned int value =
        kovran::h2645_common_read_xostylesei_vlu32(next, bytes + sizeof bytes);
    return value == 256 && next == bytes + sizeof bytes ? 0 : 1;
}
