#include <kovran/h265/h265_profile_name.h>

int main() {
    return 0;
}
