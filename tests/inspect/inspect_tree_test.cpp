#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <vector>

#include "annex_b_unit.h"
#include "byte_string.h"
#include "program.h"
#include "support/bit_writer.h"
#include "support/parameter_sets.h"

namespace kovran::test {
namespace {

// How the tree of `dump` is laid out: which elements share a line, what is written behind them.

std::string dump_of(const std::string& stream) {
    return program({"dump", "-"}).input(stream).run().out;
}

// The lines of the dump that begin with this name, with single spaces.
std::vector<std::string> lines_of(const std::string& dump, const std::string& name) {
    std::vector<std::string> lines;
    std::size_t begin = 0;
    for (std::size_t end = 0; (end = dump.find('\n', begin)) != std::string::npos;
         begin = end + 1) {
        std::string narrow;
        for (const char letter : dump.substr(begin, end - begin)) {
            if (letter != ' ' || (!narrow.empty() && narrow.back() != ' ')) {
                narrow += letter;
            }
        }
        if (narrow.rfind(name, 0) == 0) {
            lines.push_back(narrow);
        }
    }
    return lines;
}

using list = std::vector<std::string>;

// An active_parameter_sets message of one SPS with the index of it for layers 1 to 3: any but 0 is
// not allowed.
list layer_sps_idx(std::initializer_list<unsigned int> indices) {
    vps_syntax vps;
    vps.header = bit_writer().u<4>(0).u<1>(1).u<1>(1).u<6>(3).u<3>(0).u<1>(1).u<16>(0xFFFF);
    bit_writer payload = bit_writer().u<4>(0).u<1>(0).u<1>(0).ue(0).ue(0);
    for (const unsigned int index : indices) {
        payload.ue(index);
    }
    payload.trailing_bits();
    bit_writer message = bit_writer().u<8>(129).u<8>(payload.size() / 8);
    append(message, payload).trailing_bits();
    return lines_of(
        dump_of(annex_b_unit(VPS_NUT, vps.rbsp()) + annex_b_unit(PREFIX_SEI_NUT, message)),
        "layer_sps_idx");
}

TEST(InspectTree, HasEntriesOfAnArrayOnOneLine) {
    EXPECT_EQ(layer_sps_idx({0, 0, 0}), list{"layer_sps_idx[1..3] 0 0 0"});
}

TEST(InspectTree, HasAnEntryThatIsNotAllowedOnALineOfItsOwn) {
    EXPECT_EQ(layer_sps_idx({5, 0, 0}),
              (list{"layer_sps_idx[1] 5 (not allowed here)", "layer_sps_idx[2..3] 0 0"}));
    EXPECT_EQ(layer_sps_idx({0, 5, 0}),
              (list{"layer_sps_idx[1] 0", "layer_sps_idx[2] 5 (not allowed here)",
                    "layer_sps_idx[3] 0"}));
    EXPECT_EQ(layer_sps_idx({0, 0, 5}),
              (list{"layer_sps_idx[1..2] 0 0", "layer_sps_idx[3] 5 (not allowed here)"}));
    EXPECT_EQ(layer_sps_idx({5, 6, 0}),
              (list{"layer_sps_idx[1] 5 (not allowed here)",
                    "layer_sps_idx[2] 6 (not allowed here)", "layer_sps_idx[3] 0"}));
}

TEST(InspectTree, HasEachRowOfATableOnOneLine) {
    vps_syntax vps;
    vps.layer_sets = bit_writer().u<6>(1).ue(2).u<2>(0b01).u<2>(0b11);
    EXPECT_EQ(lines_of(dump_of(annex_b_unit(VPS_NUT, vps.rbsp())), "layer_id_included_flag"),
              (list{"layer_id_included_flag[1][0..1] 0 1", "layer_id_included_flag[2][0..1] 1 1"}));
}

TEST(InspectTree, HasTriplesOfEntriesInTheirOrder) {
    sps_syntax sps;
    sps.header = bit_writer().u<4>(0).u<3>(1).u<1>(1);
    // One sub-layer below the highest, without a profile or a level of its own.
    append(sps.profile_tier_level, bit_writer().u<1>(0).u<1>(0).u<14>(0));
    sps.sub_layer_ordering_info = bit_writer().u<1>(1).ue(3).ue(1).ue(4).ue(4).ue(2).ue(5);
    EXPECT_EQ(lines_of(dump_of(annex_b_unit(SPS_NUT, sps.rbsp())), "sps_max_"),
              (list{"sps_max_sub_layers_minus1 1", "sps_max_dec_pic_buffering_minus1[0] 3",
                    "sps_max_num_reorder_pics[0] 1", "sps_max_latency_increase_plus1[0] 4",
                    "sps_max_dec_pic_buffering_minus1[1] 4", "sps_max_num_reorder_pics[1] 2",
                    "sps_max_latency_increase_plus1[1] 5"}));
}

// Two sub-layers, both with a level; or one with a profile as well.
TEST(InspectTree, NamesTheLevelOfOneSubLayer) {
    sps_syntax sps;
    sps.header = bit_writer().u<4>(0).u<3>(2).u<1>(1);
    append(sps.profile_tier_level, bit_writer().u<2>(0b01).u<2>(0b01).u<12>(0).u<8>(60).u<8>(63));
    sps.sub_layer_ordering_info = bit_writer().u<1>(0).ue(0).ue(0).ue(0);
    const std::string both = dump_of(annex_b_unit(SPS_NUT, sps.rbsp()));
    EXPECT_EQ(lines_of(both, "sub_layer_level_idc"), list{"sub_layer_level_idc[0..1] 60 63"});
    EXPECT_EQ(lines_of(both, "reserved_zero_2bits"), list{"reserved_zero_2bits[2..7] 0 0 0 0 0 0"});
    EXPECT_EQ(lines_of(both, "sps_max_num_reorder_pics"), list{"sps_max_num_reorder_pics[2] 0"});

    sps.profile_tier_level = minimal_profile_tier_level();
    append(sps.profile_tier_level, bit_writer().u<2>(0b11).u<2>(0b00).u<12>(0));
    append(sps.profile_tier_level, bit_writer().u<2>(0).u<1>(1).u<5>(2).u<32>(1U << (31 - 2)));
    append(sps.profile_tier_level, bit_writer().u<4>(0).u<43>(0).u<1>(0).u<8>(63));
    const std::string one = dump_of(annex_b_unit(SPS_NUT, sps.rbsp()));
    EXPECT_EQ(lines_of(one, "sub_layer_level_idc"), list{"sub_layer_level_idc[0] 63 (level 2.1)"});
    EXPECT_EQ(lines_of(one, "sub_layer_profile_idc"), list{"sub_layer_profile_idc[0] 2 (Main 10)"});
    EXPECT_EQ(lines_of(one, "sub_layer_tier_flag"), list{"sub_layer_tier_flag[0] 1 (High tier)"});
    EXPECT_EQ(lines_of(one, "general_level_idc"), list{"general_level_idc 93 (level 3.1)"});
}

TEST(InspectTree, CountsTheBitsOfAnExtension) {
    vps_syntax vps;
    vps.extension = bit_writer().u<1>(1).u<7>(0b0010110);
    EXPECT_EQ(lines_of(dump_of(annex_b_unit(VPS_NUT, vps.rbsp())), "vps_extension"),
              (list{"vps_extension_flag 1", "vps_extension_data_flag (7 bits)"}));
}

// Three bits of which the standard says nothing yet.
TEST(InspectTree, HasTheFlagsOfAnExtensionOnOneLine) {
    sps_syntax sps;
    sps.extension = bit_writer().u<1>(1).u<8>(0x01).u<3>(0b101);
    EXPECT_EQ(lines_of(dump_of(annex_b_unit(SPS_NUT, sps.rbsp())), "sps_extension_"),
              (list{"sps_extension_present_flag 1", "sps_extension_4bits 1",
                    "sps_extension_data_flag 1 0 1"}));
}

// The lengths and types of messages are no lines of their own, long ones neither.
TEST(InspectTree, HasEachMessageBelowItsUnit) {
    const std::string payload(2 * 256, 'a');
    EXPECT_EQ(
        dump_of(bytes("000001 5001 ff05 00 64ff01" + payload + "80")),
        "rules: standard\n"
        "unit 0 at 3: SUFFIX_SEI_NUT, 265 bytes, layer 0, temporal id 0\n"
        "  payload_type_260                                    (payload type 260, 0 bytes)\n"
        "    payload\n"
        "  payload_type_100                                    (payload type 100, 256 bytes)\n"
        "    payload                                           " +
            payload + "\n\n");
}

// Types without a structure that is parsed, whatever their payload is.
TEST(InspectTree, HasNothingBelowUnitsThatAreNotParsed) {
    for (unsigned int type = 0; type < 64; ++type) {
        const bool slice = type <= 9 || (type >= 16 && type <= 21);
        const bool parsed = slice || (type >= 32 && type <= 35) || type == 39 || type == 40;
        if (!parsed) {
            const std::string unit = bytes("000001") + static_cast<char>(type << 1) + bytes("01ff");
            const outcome result = program({"dump", "-"}).input(unit).run();
            EXPECT_EQ(result.status, 0) << type;
            EXPECT_EQ(result.err, "") << type;
            const std::size_t heading = result.out.find("unit 0 at 3: ");
            EXPECT_EQ(result.out.substr(result.out.find('\n', heading)), "\n\n") << type;
        }
    }
}

}  // namespace
}  // namespace kovran::test
