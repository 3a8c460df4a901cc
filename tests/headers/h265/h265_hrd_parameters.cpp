#include <kovran/h265/h265_hrd_parameters.h>

int main() {
    kovran::h2645_common_bitreader bits;
    kovran::h265_hrd_parameters hrd;
    const bool own = hrd.parse(/*commonInfPresentFlag=*/false, /*maxNumSubLayersMinus1=*/0, bits);
    const bool standard =
        hrd.parse_standard(/*commonInfPresentFlag=*/false, /*maxNumSubLayersMinus1=*/0, bits);
    return own && !standard ? 0 : 1;  // there is no data
}
