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

// By which SPS a message is read, shown by two SPSs that agree in nothing that a message goes by.

// HRD parameters of one sub-layer with one NAL CPB, up to its bit rate and size.
bit_writer hrd_of_one_cpb(const bit_writer& common) {
    bit_writer hrd = common;
    return hrd.u<1>(1).ue(0).ue(0).ue(9).ue(9);  // fixed rate, duration, count, bit rate, size
}

// VUI parameters with nothing but timing and these HRD parameters.
bit_writer vui_with(bool frame_field_info, const bit_writer& hrd) {
    bit_writer vui = bit_writer().u<1>(1).u<4>(0).u<2>(0).u<1>(frame_field_info ? 1 : 0).u<1>(0);
    vui.u<1>(1).u<32>(1).u<32>(25).u<1>(0).u<1>(1);
    append(vui, hrd);
    return vui.u<1>(0);
}

// Delays of 8, 6 and 10 bits: of removal, of output, and the initial one. No picture structure.
bit_writer plain_sps(unsigned int id) {
    bit_writer common = bit_writer().u<1>(1).u<1>(0).u<1>(0).u<4>(0).u<4>(0);
    common.u<5>(10 - 1).u<5>(8 - 1).u<5>(6 - 1);
    sps_syntax sps;
    sps.sps_seq_parameter_set_id = bit_writer().ue(id);
    sps.vui = vui_with(/*frame_field_info=*/false, hrd_of_one_cpb(common).u<1>(0));
    return sps.rbsp();
}

// Delays of 12, 11 and 14 bits, decoding units with delays of 9 and 4 bits, and a picture
// structure.
bit_writer rich_sps(unsigned int id) {
    bit_writer common = bit_writer().u<1>(1).u<1>(0).u<1>(1);
    common.u<8>(0).u<5>(4 - 1).u<1>(1).u<5>(9 - 1);
    common.u<4>(0).u<4>(0).u<4>(0).u<5>(14 - 1).u<5>(12 - 1).u<5>(11 - 1);
    sps_syntax sps;
    sps.sps_seq_parameter_set_id = bit_writer().ue(id);
    sps.picture_size = bit_writer().ue(128).ue(64);  // two coding tree blocks, for as many units
    sps.vui = vui_with(/*frame_field_info=*/true, hrd_of_one_cpb(common).ue(9).ue(9).u<1>(0));
    return sps.rbsp();
}

bit_writer pps(unsigned int id, unsigned int sps_id) {
    pps_syntax pps;
    pps.identifiers = bit_writer().ue(id).ue(sps_id);
    return pps.rbsp();
}

std::string message(unsigned int type, const bit_writer& payload,
                    h265_nal_unit_type unit = PREFIX_SEI_NUT) {
    bit_writer whole = payload;
    if (whole.size() % 8 != 0) {
        whole.trailing_bits();  // payload_bit_equal_to_one and _zero
    }
    bit_writer rbsp = bit_writer().u<8>(type).u<8>(whole.size() / 8);
    append(rbsp, whole);
    return annex_b_unit(unit, rbsp.trailing_bits());
}

// The picture timing of each SPS.
std::string plain_timing() {
    return message(1, bit_writer().u<8>(0xA5).u<6>(0x2D));
}

std::string rich_timing() {
    bit_writer timing = bit_writer().u<4>(3).u<2>(1).u<1>(0).u<12>(0xABC).u<11>(0x4A5).u<9>(0x155);
    timing.ue(1).u<1>(0);                           // two decoding units without a common delay
    return message(1, timing.ue(6).u<4>(9).ue(2));  // the first with its delay
}

// Bit, width, name and value of each element of the last unit but what every message has.
std::vector<std::string> last_message_in(const std::string& trace) {
    std::istringstream lines(trace.substr(trace.rfind("unit ")));
    std::vector<std::string> elements;
    std::string line;
    std::getline(lines, line);
    while (std::getline(lines, line)) {
        std::istringstream columns(line);
        std::string place;
        std::string bit;
        std::string width;
        std::string path;
        std::string descriptor;
        std::string value;
        columns >> place >> bit >> width >> path >> descriptor >> value;
        const std::string name = path.substr(path.find('.') + 1);
        if (name.rfind("last_payload_", 0) != 0 && name.rfind("rbsp_", 0) != 0 &&
            name.rfind("payload_bit_", 0) != 0) {
            elements.push_back(bit + ' ' + width + ' ' + name + ' ' + value);
        }
    }
    return elements;
}

std::vector<std::string> last_message(const std::string& stream) {
    const outcome result = program({"trace", "-"}).input(stream).run();
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(result.status, 0);
    return last_message_in(result.out);
}

const std::vector<std::string>& elements_of_plain_timing() {
    static const std::vector<std::string> elements = {
        "16 8 au_cpb_removal_delay_minus1 165",
        "24 6 pic_dpb_output_delay 45",
    };
    return elements;
}

const std::vector<std::string>& elements_of_rich_timing() {
    static const std::vector<std::string> elements = {
        "16 4 pic_struct 3",
        "20 2 source_scan_type 1",
        "22 1 duplicate_flag 0",
        "23 12 au_cpb_removal_delay_minus1 2748",
        "35 11 pic_dpb_output_delay 1189",
        "46 9 pic_dpb_output_du_delay 341",
        "55 3 num_decoding_units_minus1 1",
        "58 1 du_common_cpb_removal_delay_flag 0",
        "59 5 num_nalus_in_du_minus1[0] 6",
        "64 4 du_cpb_removal_delay_increment_minus1[0] 9",
        "68 3 num_nalus_in_du_minus1[1] 2",
    };
    return elements;
}

// That the message behind this stream is read by the one SPS or the other.
void expect_plain(const std::string& stream) {
    EXPECT_EQ(last_message(stream + plain_timing()), elements_of_plain_timing());
}

void expect_rich(const std::string& stream) {
    EXPECT_EQ(last_message(stream + rich_timing()), elements_of_rich_timing());
}

std::string sps_unit(bit_writer (*sps)(unsigned int id), unsigned int id) {
    return annex_b_unit(SPS_NUT, sps(id));
}

std::string vps_unit() {
    return annex_b_unit(VPS_NUT, vps_syntax().rbsp());
}

// SPS 0 is the plain one and SPS 1 the rich one; PPS 0 names SPS 1 and PPS 1 names SPS 0.
std::string both_sets() {
    return vps_unit() + sps_unit(plain_sps, 0) + sps_unit(rich_sps, 1) +
           annex_b_unit(PPS_NUT, pps(0, 1)) + annex_b_unit(PPS_NUT, pps(1, 0));
}

// An I slice of an IDR picture.
std::string slice(unsigned int pps_id) {
    return annex_b_unit(IDR_W_RADL,
                        bit_writer().u<1>(1).u<1>(0).ue(pps_id).ue(2).se(0).trailing_bits());
}

// Delays by the SPS that it names, which is the rich one or the plain one.
bit_writer rich_period(unsigned int sps_id) {
    bit_writer period = bit_writer().ue(sps_id).u<1>(0).u<12>(5);
    return period.u<14>(6).u<14>(7).u<14>(8).u<14>(9);
}

bit_writer plain_period(unsigned int sps_id) {
    return bit_writer().ue(sps_id).u<1>(0).u<1>(0).u<8>(5).u<10>(6).u<10>(7);
}

bit_writer active_sets(const std::vector<unsigned int>& sps_ids) {
    bit_writer sets = bit_writer().u<4>(0).u<1>(0).u<1>(0);
    sets.ue(static_cast<unsigned int>(sps_ids.size()) - 1);
    for (const unsigned int id : sps_ids) {
        sets.ue(id);
    }
    return sets;
}

TEST(InspectActiveSps, IsTheFirstOneBeforeAnyIsNamed) {
    expect_plain(vps_unit() + sps_unit(plain_sps, 0) + sps_unit(rich_sps, 1));
    expect_rich(vps_unit() + sps_unit(rich_sps, 1) + sps_unit(plain_sps, 0));
}

TEST(InspectActiveSps, IsThatOfThePpsOfASlice) {
    expect_rich(both_sets() + slice(0));
    expect_plain(both_sets() + slice(1));
    expect_plain(both_sets() + slice(0) + slice(1));
    expect_rich(both_sets() + slice(1) + slice(0));
}

TEST(InspectActiveSps, StaysWhenASliceCannotBeRead) {
    const std::string broken = annex_b_unit(IDR_W_RADL, bit_writer().u<1>(1).u<1>(0).ue(0).ue(3));
    const std::string stream = both_sets() + broken + plain_timing();
    const outcome result = program({"dump", "-"}).input(stream).run();
    EXPECT_EQ(result.status, 1);
    EXPECT_NE(result.out.find("au_cpb_removal_delay_minus1                       165\n"),
              std::string::npos)
        << result.out;
}

TEST(InspectActiveSps, IsThatWhichABufferingPeriodNames) {
    expect_rich(both_sets() + message(0, rich_period(1)));
    expect_plain(both_sets() + slice(0) + message(0, plain_period(0)));
    EXPECT_EQ(
        last_message(both_sets() + message(0, rich_period(1))),
        (std::vector<std::string>{"16 3 bp_seq_parameter_set_id 1", "19 1 concatenation_flag 0",
                                  "20 12 au_cpb_removal_delay_delta_minus1 5",
                                  "32 14 nal_initial_cpb_removal_delay[0] 6",
                                  "46 14 nal_initial_cpb_removal_offset[0] 7",
                                  "60 14 nal_initial_alt_cpb_removal_delay[0] 8",
                                  "74 14 nal_initial_alt_cpb_removal_offset[0] 9"}));
}

TEST(InspectActiveSps, IsTheFirstOfAnActiveParameterSetsMessage) {
    expect_rich(both_sets() + message(129, active_sets({1, 0})));
    expect_plain(both_sets() + slice(0) + message(129, active_sets({0, 1})));
    expect_rich(both_sets() + message(129, active_sets({1})));
}

TEST(InspectActiveSps, StaysWhenAMessageCannotBeRead) {
    const std::string active = message(129, bit_writer().u<8>(0));  // ends in num_sps_ids_minus1
    const std::string period = message(0, bit_writer().ue(1).u<1>(0).u<12>(5));
    for (const std::string& broken : {active, period}) {
        const outcome result =
            program({"dump", "-"}).input(both_sets() + broken + plain_timing()).run();
        EXPECT_EQ(result.status, 1);
        EXPECT_NE(result.out.find("au_cpb_removal_delay_minus1                       165\n"),
                  std::string::npos)
            << result.out;
    }
}

// In a suffix SEI unit these types are reserved: they are read, and have no effect.
TEST(InspectActiveSps, StaysAfterSuffixMessages) {
    for (const std::string& misplaced : {message(0, rich_period(1), SUFFIX_SEI_NUT),
                                         message(129, active_sets({1}), SUFFIX_SEI_NUT)}) {
        const outcome result =
            program({"trace", "-"}).input(both_sets() + misplaced + plain_timing()).run();
        EXPECT_EQ(last_message_in(result.out), elements_of_plain_timing());
        EXPECT_NE(result.err.find("stands in a suffix SEI unit"), std::string::npos);
    }
}

TEST(InspectActiveSps, MayBeSentAgainWithOtherContents) {
    expect_rich(vps_unit() + sps_unit(plain_sps, 0) + sps_unit(rich_sps, 0));
}

// A unit whose nuh_layer_id is 1.
std::string in_layer_1(std::string unit) {
    unit[5] = static_cast<char>(unit[5] | 8);
    return unit;
}

TEST(InspectActiveSps, IsNoneOfAHigherLayer) {
    expect_plain(both_sets() + in_layer_1(slice(0)));
    expect_plain(both_sets() + in_layer_1(message(129, active_sets({1}))));
    expect_plain(vps_unit() + sps_unit(plain_sps, 0) + in_layer_1(sps_unit(rich_sps, 0)));
    expect_plain(vps_unit() + in_layer_1(sps_unit(rich_sps, 1)) + sps_unit(plain_sps, 0));
}

TEST(InspectActiveSps, IsMissingBeforeThereIsAny) {
    const outcome result = program({"dump", "--json", "-"}).input(plain_timing()).run();
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err,
              "kovran: standard input: unit 0 at 4: SEI message pic_timing cannot be read: "
              "no SPS is active\n");
    EXPECT_EQ(result.out.find("parameter_set_id"), std::string::npos);
    EXPECT_NE(result.out.find("\"parameter_set\":\"SPS\""), std::string::npos);
}

}  // namespace
}  // namespace kovran::test
