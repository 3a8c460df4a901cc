#include <kovran/h265/h265_hrd_rates.h>

namespace kovran {
namespace {

constexpr unsigned int bit_rate_shift = 6;
constexpr unsigned int cpb_size_shift = 4;

std::uint64_t scaled(unsigned int value_minus1, unsigned int shift) {
    return (std::uint64_t{value_minus1} + 1) << shift;
}

}  // namespace

h265_hrd_rates h265_hrd_rates_of(const h265_hrd_parameters& hrd,
                                 const h265_nal_sub_layer_hrd_parameters& sub_layer,
                                 std::size_t cpb) {
    h265_hrd_rates rates;
    if (cpb >= sub_layer.bit_rate_value_minus1.size() ||
        cpb >= sub_layer.cpb_size_value_minus1.size() || cpb >= sub_layer.cbr_flag.size()) {
        return rates;
    }
    const unsigned int rate_shift = bit_rate_shift + (hrd.bit_rate_scale & 0xFU);
    rates.BitRate = scaled(sub_layer.bit_rate_value_minus1[cpb], rate_shift);
    rates.CpbSize =
        scaled(sub_layer.cpb_size_value_minus1[cpb], cpb_size_shift + (hrd.cpb_size_scale & 0xFU));
    rates.cbr_flag = sub_layer.cbr_flag[cpb];
    if (hrd.sub_pic_hrd_params_present_flag && cpb < sub_layer.cpb_size_du_value_minus1.size() &&
        cpb < sub_layer.bit_rate_du_value_minus1.size()) {
        rates.BitRateDu = scaled(sub_layer.bit_rate_du_value_minus1[cpb], rate_shift);
        rates.CpbSizeDu = scaled(sub_layer.cpb_size_du_value_minus1[cpb],
                                 cpb_size_shift + (hrd.cpb_size_du_scale & 0xFU));
    }
    return rates;
}

}  // namespace kovran
