#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "annex_b_unit.h"
#include "program.h"
#include "support/bit_writer.h"
#include "support/parameter_sets.h"

namespace kovran::test {
namespace {

// Which rule `differences` names where a unit suffers from a parameter set that it names, or from
// one that this one names.

// "unit 3: rule, in unit 0" for each unit that differs.
std::vector<std::string> causes_in(const std::string& stream) {
    std::istringstream lines(program({"differences", "--all", "-"}).input(stream).run().out);
    std::vector<std::string> causes;
    std::string unit;
    for (std::string line; std::getline(lines, line);) {
        if (line.rfind("unit ", 0) == 0) {
            unit = line.substr(0, line.find(" at "));
        } else if (line.rfind("  rule      ", 0) == 0) {
            causes.push_back(unit + ": " + line.substr(12));
        }
    }
    return causes;
}

using list = std::vector<std::string>;

// An I slice of an IDR picture.
std::string slice(unsigned int pps_id) {
    return annex_b_unit(IDR_W_RADL,
                        bit_writer().u<1>(1).u<1>(0).ue(pps_id).ue(2).se(0).trailing_bits());
}

std::string pps_unit(unsigned int id, unsigned int sps_id) {
    pps_syntax pps;
    pps.identifiers = bit_writer().ue(id).ue(sps_id);
    return annex_b_unit(PPS_NUT, pps.rbsp());
}

std::string sps_unit(unsigned int id, unsigned int vps_id) {
    sps_syntax sps;
    sps.header = bit_writer().u(4, vps_id).u<3>(0).u<1>(1);
    sps.sps_seq_parameter_set_id = bit_writer().ue(id);
    return annex_b_unit(SPS_NUT, sps.rbsp());
}

// vps_max_sub_layers_minus1 is 7, which the standard's rules refuse. Two flags for each of the
// seven lower sub-layers and one more pair of bits.
std::string vps_of_eight_sub_layers(unsigned int id) {
    vps_syntax vps;
    vps.header = bit_writer().u(4, id).u<1>(1).u<1>(1).u<6>(0).u<3>(7).u<1>(1).u<16>(0xFFFF);
    append(vps.profile_tier_level, bit_writer().u<16>(0));
    vps.sub_layer_ordering_info = bit_writer().u<1>(0).ue(0).ue(0).ue(0);
    return annex_b_unit(VPS_NUT, vps.rbsp());
}

// SPS and PPS read alike; only the slice misses the VPS.
TEST(InspectDifferenceCauses, ASliceSuffersFromItsVps) {
    EXPECT_EQ(causes_in(vps_of_eight_sub_layers(0) + sps_unit(0, 0) + pps_unit(0, 0) + slice(0)),
              (list{"unit 0: max_profile_tier_level_sub_layers",
                    "unit 3: max_profile_tier_level_sub_layers, in unit 0"}));
    EXPECT_EQ(causes_in(vps_of_eight_sub_layers(9) + sps_unit(3, 9) + pps_unit(5, 3) + slice(5)),
              (list{"unit 0: max_profile_tier_level_sub_layers",
                    "unit 3: max_profile_tier_level_sub_layers, in unit 0"}));
}

// By the library's own rules the SPS needs its VPS, the PPS its SPS and the slice its PPS.
TEST(InspectDifferenceCauses, EachSetSuffersFromTheOneThatItNames) {
    vps_syntax vps;
    vps.header = bit_writer().u<4>(2).u<1>(1).u<1>(1).u<6>(0).u<3>(0).u<1>(1).u<16>(0xFFFF);
    EXPECT_EQ(
        causes_in(sps_unit(3, 2) + annex_b_unit(VPS_NUT, vps.rbsp()) + pps_unit(5, 3) + slice(5)),
        (list{"unit 0: has_named_set", "unit 2: has_named_set, in unit 0",
              "unit 3: has_named_set, in unit 0"}));
}

// The bit behind the VPS's elements is 0 instead of rbsp_stop_one_bit, for which the library's own
// rules refuse it. The message names it, and an SPS that has another VPS.
TEST(InspectDifferenceCauses, AMessageSuffersFromTheVpsThatItNames) {
    vps_syntax vps;
    vps.header = bit_writer().u<4>(2).u<1>(1).u<1>(1).u<6>(0).u<3>(0).u<1>(1).u<16>(0xFFFF);
    const bit_writer payload = bit_writer().u<4>(2).u<2>(0).ue(0).ue(0);
    bit_writer message = bit_writer().u<8>(129).u<8>(1);
    append(message, payload).trailing_bits();
    EXPECT_EQ(causes_in(annex_b_unit(VPS_NUT, vps_syntax().rbsp()) +
                        annex_b_unit(VPS_NUT, vps.payload().u<1>(0).trailing_bits()) +
                        sps_unit(0, 0) + annex_b_unit(PREFIX_SEI_NUT, message)),
              (list{"unit 1: trailing_bits_decide", "unit 3: trailing_bits_decide, in unit 1"}));
}

// Of two sets, an index has one bit by the standard, and two by the library's own rules, which have
// the same value here and end what is read.
TEST(InspectDifferenceCauses, AnElementOfAnotherWidthDiffers) {
    sps_syntax sps;
    sps.short_term_ref_pic_sets = bit_writer().ue(2).ue(0).ue(0).u<1>(0).ue(0).ue(0);
    // An I slice with slice_pic_order_cnt_lsb 5 and a set of the SPS.
    const bit_writer slice = bit_writer().u<1>(1).ue(0).ue(2).u<8>(5).u<1>(1).u<2>(0);
    EXPECT_EQ(
        causes_in(annex_b_unit(VPS_NUT, vps_syntax().rbsp()) + annex_b_unit(SPS_NUT, sps.rbsp()) +
                  pps_unit(0, 0) + annex_b_unit(TRAIL_R, bit_writer(slice).trailing_bits())),
        list{"unit 3: index_width"});
}

// Of two parameter sets, a unit suffers from the one that it names.
TEST(InspectDifferenceCauses, AnotherSetIsNoCause) {
    const std::string good_vps = annex_b_unit(VPS_NUT, vps_syntax().rbsp());
    EXPECT_EQ(causes_in(good_vps + vps_of_eight_sub_layers(1) + sps_unit(0, 0) + sps_unit(1, 1) +
                        pps_unit(0, 1) + pps_unit(1, 0) + slice(0) + slice(1)),
              (list{"unit 1: max_profile_tier_level_sub_layers",
                    "unit 6: max_profile_tier_level_sub_layers, in unit 1"}));
}

// A good one of the same identifier takes its place.
TEST(InspectDifferenceCauses, ASetThatIsReplacedIsNoCauseAnyMore) {
    EXPECT_EQ(causes_in(vps_of_eight_sub_layers(0) + sps_unit(0, 0) + pps_unit(0, 0) +
                        annex_b_unit(VPS_NUT, vps_syntax().rbsp()) + slice(0)),
              list{"unit 0: max_profile_tier_level_sub_layers"});
}

}  // namespace
}  // namespace kovran::test
