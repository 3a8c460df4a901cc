#include <kovran/h265/h265_profile_name.h>

int main() {
    kovran::h265_profile_tier_level::layer_t layer;
    layer.profile_idc = 1;
    return *kovran::h265_profile_name(layer) == 'M' ? 0 : 1;
}
