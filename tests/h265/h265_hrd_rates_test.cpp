#include <kovran/h265/h265_hrd_rates.h>

#include <gtest/gtest.h>

#include <cstdint>

namespace kovran {
namespace {

// Two CPBs, the second one with the largest values.
h265_nal_sub_layer_hrd_parameters two_cpbs() {
    h265_nal_sub_layer_hrd_parameters sub_layer;
    sub_layer.bit_rate_value_minus1 = {999, 0xFFFFFFFF};
    sub_layer.cpb_size_value_minus1 = {499, 0xFFFFFFFF};
    sub_layer.cpb_size_du_value_minus1 = {9, 0xFFFFFFFF};
    sub_layer.bit_rate_du_value_minus1 = {99, 0xFFFFFFFF};
    sub_layer.cbr_flag = {false, true};
    return sub_layer;
}

void expect_rates(const h265_hrd_rates& rates, std::uint64_t bit_rate, std::uint64_t cpb_size,
                  std::uint64_t bit_rate_du, std::uint64_t cpb_size_du, bool cbr) {
    EXPECT_EQ(rates.BitRate, bit_rate);
    EXPECT_EQ(rates.CpbSize, cpb_size);
    EXPECT_EQ(rates.BitRateDu, bit_rate_du);
    EXPECT_EQ(rates.CpbSizeDu, cpb_size_du);
    EXPECT_EQ(rates.cbr_flag, cbr);
}

TEST(H265HrdRates, AreScaled) {
    h265_hrd_parameters hrd;
    expect_rates(h265_hrd_rates_of(hrd, two_cpbs(), 0), 64000, 8000, 0, 0, false);
    hrd.bit_rate_scale = 1;
    hrd.cpb_size_scale = 2;
    expect_rates(h265_hrd_rates_of(hrd, two_cpbs(), 0), 128000, 32000, 0, 0, false);
}

TEST(H265HrdRates, HaveThoseOfDecodingUnitsWithSubPictureParameters) {
    h265_hrd_parameters hrd;
    hrd.sub_pic_hrd_params_present_flag = true;
    hrd.bit_rate_scale = 1;
    hrd.cpb_size_scale = 2;
    hrd.cpb_size_du_scale = 3;
    expect_rates(h265_hrd_rates_of(hrd, two_cpbs(), 0), 128000, 32000, 12800, 1280, false);
}

// 2^32 times 2^21, 2^19, 2^21 and 2^19.
TEST(H265HrdRates, HoldTheLargestValues) {
    h265_hrd_parameters hrd;
    hrd.sub_pic_hrd_params_present_flag = true;
    hrd.bit_rate_scale = 15;
    hrd.cpb_size_scale = 15;
    hrd.cpb_size_du_scale = 15;
    expect_rates(h265_hrd_rates_of(hrd, two_cpbs(), 1), 9007199254740992, 2251799813685248,
                 9007199254740992, 2251799813685248, true);
}

TEST(H265HrdRates, AreZeroForACpbThatIsNotListed) {
    h265_hrd_parameters hrd;
    hrd.sub_pic_hrd_params_present_flag = true;
    expect_rates(h265_hrd_rates_of(hrd, two_cpbs(), 2), 0, 0, 0, 0, false);
    expect_rates(h265_hrd_rates_of(hrd, {}, 0), 0, 0, 0, 0, false);
    h265_nal_sub_layer_hrd_parameters no_decoding_units = two_cpbs();
    no_decoding_units.cpb_size_du_value_minus1.clear();
    expect_rates(h265_hrd_rates_of(hrd, no_decoding_units, 0), 64000, 8000, 0, 0, false);
}

// In records that a host fills.
TEST(H265HrdRates, AreZeroWhereOneOfItsListsIsShorter) {
    h265_hrd_parameters hrd;
    hrd.sub_pic_hrd_params_present_flag = true;
    h265_nal_sub_layer_hrd_parameters shorter = two_cpbs();
    shorter.bit_rate_value_minus1.pop_back();
    expect_rates(h265_hrd_rates_of(hrd, shorter, 1), 0, 0, 0, 0, false);
    shorter = two_cpbs();
    shorter.cpb_size_value_minus1.pop_back();
    expect_rates(h265_hrd_rates_of(hrd, shorter, 1), 0, 0, 0, 0, false);
    shorter = two_cpbs();
    shorter.cbr_flag.pop_back();
    expect_rates(h265_hrd_rates_of(hrd, shorter, 1), 0, 0, 0, 0, false);
    shorter = two_cpbs();
    shorter.bit_rate_du_value_minus1.pop_back();  // 2^32 times 2^6 and 2^4
    expect_rates(h265_hrd_rates_of(hrd, shorter, 1), 274877906944, 68719476736, 0, 0, true);
}

}  // namespace
}  // namespace kovran
