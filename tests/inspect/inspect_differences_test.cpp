#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstddef>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "annex_b_unit.h"
#include "byte_string.h"
#include "program.h"
#include "reading_elements.h"
#include "readings.h"
#include "support/bit_writer.h"
#include "support/parameter_sets.h"
#include "temporary_folder.h"

namespace kovran::test {
namespace {

// The four lines about a unit.
struct difference {
    std::string place;
    std::string standard;
    std::string own;
    std::string rule;
};

// With one space for a row of them.
std::string narrowed(const std::string& line) {
    std::string narrow;
    for (const char letter : line) {
        if (letter != ' ' || (!narrow.empty() && narrow.back() != ' ')) {
            narrow += letter;
        }
    }
    return narrow;
}

struct differences {
    std::string total;
    std::vector<difference> units;
};

differences differences_in(const std::string& text) {
    const std::vector<std::string> lines = lines_of_text(text);
    differences found;
    found.total = lines.empty() ? "" : lines.front();
    auto line = std::find_if(lines.begin(), lines.end(),
                             [](const std::string& each) { return each.rfind("unit ", 0) == 0; });
    for (; lines.end() - line >= 4; line += 4) {
        found.units.push_back({line[0], narrowed(line[1]), narrowed(line[2]), narrowed(line[3])});
    }
    return found;
}

TEST(InspectDifferences, ShowsNoneWhereBothReadAlike) {
    const outcome result = run({"differences", stream_path("hm_still")});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(result.out, "0 of 5 NAL units are read differently\n");
}

// Bits 218 and 223 are where the reading has these elements, behind the header's 16.
TEST(InspectDifferences, ShowsTheFirstElementAndTheRule) {
    const differences found =
        differences_in(run({"differences", "--all", stream_path("hmx_vps_hrd1")}).out);
    ASSERT_GE(found.units.size(), 4U);
    EXPECT_EQ(found.units[0].place, "unit 0 at 4: VPS_NUT");
    EXPECT_EQ(found.units[0].standard,
              "standard 218 1 hrd_parameters[0].nal_hrd_parameters_present_flag u(n) 1");
    EXPECT_EQ(found.units[0].own,
              "own 218 1 hrd_parameters[0].fixed_pic_rate_general_flag[0] u(n) 1");
    EXPECT_EQ(found.units[0].rule, "rule infer_first_cprms_present_flag");
    EXPECT_EQ(found.units[1].place, "unit 1 at 59: SPS_NUT");
    EXPECT_EQ(found.units[1].standard,
              "standard 223 1 st_ref_pic_set[2].used_by_curr_pic_flag[1] u(n) 1");
    EXPECT_EQ(found.units[1].rule, "rule end_predicted_set");
    EXPECT_EQ(found.units[2].own,
              "own ends here: SPS 0, which this PPS uses, is missing: the SPS of unit 1 could not "
              "be read");
    EXPECT_EQ(found.units[2].rule, "rule end_predicted_set, in unit 1");
    EXPECT_EQ(found.units[3].place.substr(0, 6), "unit 3");
    EXPECT_EQ(found.units[3].rule, "rule end_predicted_set, in unit 1");
}

// The rule that each unit type of a stream differs by, from the options that it was made with.
TEST(InspectDifferences, NamesTheRuleOfEachUnit) {
    const differences found =
        differences_in(run({"differences", "--all", stream_path("main_default")}).out);
    std::set<std::string> rules;
    for (const difference& each : found.units) {
        rules.insert(each.rule);
        EXPECT_NE(each.standard.find(" slice_temporal_mvp_enabled_flag "), std::string::npos);
    }
    EXPECT_EQ(rules, std::set<std::string>{"rule has_temporal_mvp_flag"});
}

// The flag stands in the reading of every slice but that of the IDR picture.
TEST(InspectDifferences, SaysWhatTheRulesDo) {
    EXPECT_EQ(
        run({"differences", stream_path("main_default")}).out,
        "7 of 12 NAL units are read differently\n"
        "\n"
        "has_temporal_mvp_flag (7.3.6.1)\n"
        "  slice_temporal_mvp_enabled_flag is read only where long-term pictures are allowed; "
        "by the standard, wherever the SPS enables it.\n"
        "  units: TRAIL_N 4, TRAIL_R 3\n");
}

// In the list modification of hmx_ltrsps5 no rule of the slice itself differs once the SPS is read;
// its SPS is not, which every line says.
TEST(InspectDifferences, NamesTheParameterSetThatAUnitSuffersFrom) {
    const differences found =
        differences_in(run({"differences", "--all", stream_path("hmx_ltrsps5")}).out);
    ASSERT_FALSE(found.units.empty());
    EXPECT_EQ(found.units[0].rule, "rule end_predicted_set");
    for (std::size_t i = 1; i < found.units.size(); ++i) {
        EXPECT_EQ(found.units[i].rule, "rule end_predicted_set, in unit 1") << found.units[i].place;
    }
}

// NOLINTNEXTLINE(readability-identifier-naming): the name of a suite
class InspectDifferencesOfStreams : public testing::TestWithParam<std::string> {};

// Each unit that differs does so for a known rule, and no sooner than the elements of the other
// reader say it may: at an element that it has at that place.
TEST_P(InspectDifferencesOfStreams, HaveACauseAndStandWhereTheReadingSays) {
    const nlohmann::json reading = units_of_reading(GetParam());
    const outcome result = run({"differences", "--all", stream_path(GetParam())});
    const differences found = differences_in(result.out);
    EXPECT_EQ(found.total, std::to_string(found.units.size()) + " of " +
                               std::to_string(reading.size()) + " NAL units are read differently");
    EXPECT_EQ(result.out.find("not known"), std::string::npos);
    for (const difference& each : found.units) {
        SCOPED_TRACE(each.place);
        const std::size_t index = std::stoul(each.place.substr(5));
        ASSERT_LT(index, reading.size());
        std::istringstream standard(each.standard);
        std::string word;
        std::size_t bit = 0;
        std::size_t width = 0;
        standard >> word >> bit >> width;
        if (standard.fail()) {
            continue;  // "ends here"
        }
        std::string path;
        standard >> path;
        const std::string name = path.substr(path.rfind('.') + 1);
        const std::vector<expected_element> elements = elements_of(reading[index]);
        bool known = elements.empty();
        for (const expected_element& expected : elements) {
            known =
                known || (expected.name == name && expected.bit == bit && expected.width == width);
        }
        EXPECT_TRUE(known) << each.standard;
    }
}

// Without the unit that the rule was applied in.
std::string rule_alone(const difference& unit) {
    const std::size_t begin = std::string("rule ").size();
    return unit.rule.substr(begin, unit.rule.find(',') - begin);
}

TEST_P(InspectDifferencesOfStreams, AreCountedByRuleAndType) {
    const outcome result = run({"differences", "--all", stream_path(GetParam())});
    std::map<std::string, std::map<std::string, int>> counts;
    for (const difference& each : differences_in(result.out).units) {
        ++counts[rule_alone(each)][each.place.substr(each.place.rfind(' ') + 1)];
    }
    std::string rule;
    for (const std::string& line :
         lines_of_text(run({"differences", stream_path(GetParam())}).out)) {
        if (line.rfind("  units: ", 0) != 0) {
            rule = line.rfind("  ", 0) == 0 ? rule : line.substr(0, line.find(' '));
            continue;
        }
        std::istringstream types(line.substr(line.find(':') + 1));
        std::string type;
        for (int count = 0; types >> type >> count; types.ignore()) {
            EXPECT_EQ(counts[rule][type], count) << rule << ' ' << type;
            counts[rule].erase(type);
        }
        EXPECT_TRUE(counts[rule].empty()) << rule;
        counts.erase(rule);
    }
    EXPECT_TRUE(counts.empty());
}

std::string value_of(const std::vector<expected_element>& all, const std::string& name) {
    const std::size_t index = index_of(all, name);
    return index < all.size() ? all[index].value : "";
}

// An SPS in which a set is predicted from a predicted one is misread by the library's own rules.
// Its slices are lost with it unless their reading of it comes to an end by chance.
struct own_sps {
    bool lost = true;
    bool has_long_term_pics = false;  // by that reading
};

std::map<std::size_t, own_sps> own_readings_of_sps(const std::string& stream) {
    std::map<std::size_t, own_sps> readings;
    const outcome result =
        run({"dump", "--json", "--rules", "own", "--type", "33", stream_path(stream)});
    for (const std::string& line : lines_of_text(result.out)) {
        const nlohmann::json unit = nlohmann::json::parse(line);
        readings[unit.at("index")] = {
            unit.contains("fault"),
            unit.at("syntax").value("long_term_ref_pics_present_flag", 0) != 0};
    }
    return readings;
}

// What the slices of an SPS differ by.
struct cause_in_sps {
    std::string rule;  // empty when the SPS is read alike
    own_sps own;
};

// The rules that a slice can differ by; an empty one when it can read alike.
std::set<std::string> rules_of_slice(const cause_in_sps& sps, const std::string& rule_of_flag,
                                     bool predicts_its_set) {
    if (sps.rule.empty()) {
        return {rule_of_flag};
    }
    // Slices without the flag are those of IDR pictures, which have nothing of long-term ones, too.
    if (sps.own.lost || (sps.own.has_long_term_pics && !rule_of_flag.empty())) {
        return {sps.rule};
    }
    // Whether the set that it is predicted from has as many pictures is chance as well.
    return predicts_its_set ? std::set{sps.rule, rule_of_flag} : std::set{rule_of_flag};
}

// The fourth line of each slice by its unit, worked out from the reading. Slices of an SPS that is
// read alike, in none of which long-term pictures are allowed, differ where they have a flag for
// temporal motion vector prediction.
std::map<std::size_t, std::set<std::string>> rules_of_slices(const std::string& stream) {
    const nlohmann::json reading = units_of_reading(stream);
    std::map<std::size_t, own_sps> own = own_readings_of_sps(stream);
    std::map<std::string, cause_in_sps> cause_in;
    std::map<std::string, std::string> sps_of_pps;
    std::map<std::size_t, std::set<std::string>> rules;
    for (std::size_t i = 0; i < reading.size(); ++i) {
        const auto type = reading[i].at("nal_unit_type").get<unsigned int>();
        const std::vector<expected_element> elements = elements_of(reading[i]);
        if (reading[i].at("nuh_layer_id") != 0 || elements.empty()) {
            continue;
        }
        if (type == 33) {
            const bool chained = first_of_a_chained_prediction(elements) != elements.size();
            EXPECT_TRUE(chained || value_of(elements, "long_term_ref_pics_present_flag") == "0");
            cause_in[value_of(elements, "sps_seq_parameter_set_id")] = {
                chained ? "rule end_predicted_set, in unit " + std::to_string(i) : "", own[i]};
            if (stream == "more_ed_vpshrd") {  // whose VPS is lost, and its SPS with it
                cause_in["0"].rule = "rule infer_first_cprms_present_flag, in unit 0";
            }
        } else if (type == 34) {
            sps_of_pps[value_of(elements, "pps_pic_parameter_set_id")] =
                value_of(elements, "pps_seq_parameter_set_id");
        } else if (type < 32) {
            const bool has_flag = !value_of(elements, "slice_temporal_mvp_enabled_flag").empty();
            const std::string rule_of_flag = has_flag ? "rule has_temporal_mvp_flag" : "";
            const std::string pps = value_of(elements, "slice_pic_parameter_set_id");
            rules[i] =
                rules_of_slice(cause_in[sps_of_pps[pps]], rule_of_flag,
                               value_of(elements, "inter_ref_pic_set_prediction_flag") == "1");
        }
    }
    return rules;
}

TEST_P(InspectDifferencesOfStreams, NameTheRuleThatDecidedOnASlice) {
    std::map<std::size_t, std::set<std::string>> expected = rules_of_slices(GetParam());
    for (const difference& each :
         differences_in(run({"differences", "--all", stream_path(GetParam())}).out).units) {
        const auto slice = expected.find(std::stoul(each.place.substr(5)));
        if (slice != expected.end()) {
            EXPECT_EQ(slice->second.count(each.rule), 1U) << each.place << ": " << each.rule;
            expected.erase(slice);
        }
    }
    for (const auto& [unit, rules] : expected) {
        EXPECT_EQ(rules.count(""), 1U) << "unit " << unit << " is not among the differences";
    }
}

INSTANTIATE_TEST_SUITE_P(AllStreams, InspectDifferencesOfStreams, testing::ValuesIn(stream_names()),
                         [](const testing::TestParamInfo<std::string>& stream) {
                             return stream.param;
                         });

// What follows a minimal VPS and SPS: a slice, after the PPS that it names.
outcome differences_of_slice(const pps_syntax& pps, h265_nal_unit_type type,
                             const bit_writer& slice, const sps_syntax& sps = {}) {
    const std::string stream = annex_b_unit(VPS_NUT, vps_syntax().rbsp()) +
                               annex_b_unit(SPS_NUT, sps.rbsp()) +
                               annex_b_unit(PPS_NUT, pps.rbsp()) + annex_b_unit(type, slice);
    return program({"differences", "--all", "-"}).input(stream).run();
}

// An I slice of an IDR picture, up to where the library's own rules end it.
bit_writer begin_of_idr_slice() {
    return bit_writer().u<1>(1).u<1>(0).ue(0).ue(2);
}

// The rest of the header is read by the standard's rules only, in every slice.
TEST(InspectDifferences, LeavesTheEndOfASliceHeaderOut) {
    const std::string none = "0 of 4 NAL units are read differently\n";
    const outcome whole =
        differences_of_slice({}, IDR_W_RADL, begin_of_idr_slice().se(0).trailing_bits());
    EXPECT_EQ(whole.status, 0) << whole.err;
    EXPECT_EQ(whole.out, none);

    // Of three coding tree blocks, the second one has a dependent segment.
    pps_syntax pps;
    pps.slice_header = bit_writer().u<1>(1).u<1>(0).u<3>(0).u<1>(0).u<1>(0);
    sps_syntax sps;
    sps.picture_size = bit_writer().ue(192).ue(64);
    const bit_writer segment = bit_writer().u<1>(0).u<1>(0).ue(0).u<1>(1).u<2>(1);
    const outcome dependent =
        differences_of_slice(pps, IDR_W_RADL, bit_writer(segment).trailing_bits(), sps);
    EXPECT_EQ(dependent.status, 0) << dependent.err;
    EXPECT_EQ(dependent.out, none);
}

// num_entry_point_offsets is 1 in a picture of one row, and with two reserved flags the byte ends
// before slice_qp_delta.
TEST(InspectDifferences, LeavesFaultsAtTheEndOfASliceHeaderOut) {
    pps_syntax synchronized;
    synchronized.tiles = bit_writer().u<1>(0).u<1>(1);
    const outcome refused = differences_of_slice(
        synchronized, IDR_W_RADL, begin_of_idr_slice().se(0).ue(1).ue(0).u<1>(0).trailing_bits());
    EXPECT_EQ(refused.status, 1);
    EXPECT_EQ(refused.out, "0 of 4 NAL units are read differently\n");
    EXPECT_NE(refused.err.find("num_entry_point_offsets at bit 7 is 1; allowed: 0"),
              std::string::npos)
        << refused.err;

    pps_syntax reserving;
    reserving.slice_header = bit_writer().u<1>(0).u<1>(0).u<3>(2).u<1>(0).u<1>(0);
    const outcome cut = differences_of_slice(reserving, IDR_W_RADL,
                                             bit_writer().u<1>(1).u<1>(0).ue(0).u<2>(0).ue(2));
    EXPECT_EQ(cut.status, 1);
    EXPECT_EQ(cut.out, "0 of 4 NAL units are read differently\n");
    EXPECT_NE(cut.err.find("the data ends before the end of slice_qp_delta at bit 8"),
              std::string::npos)
        << cut.err;
}

// In an I slice without sample adaptive offset slice_temporal_mvp_enabled_flag is the last element
// before slice_qp_delta.
TEST(InspectDifferences, ShowsASliceThatTheOwnRulesEndAnElementTooEarly) {
    sps_syntax sps;
    sps.motion_and_smoothing = bit_writer().u<1>(1).u<1>(0);
    bit_writer slice = bit_writer().u<1>(1).ue(0).ue(2).u<8>(5).u<1>(0);
    slice.ue(0).ue(0).u<1>(1).se(0).trailing_bits();  // an empty set, then the flag
    const outcome result = differences_of_slice({}, TRAIL_R, slice, sps);
    const differences found = differences_in(result.out);
    ASSERT_EQ(found.units.size(), 1U) << result.out << result.err;
    EXPECT_EQ(found.units[0].standard, "standard 16 1 slice_temporal_mvp_enabled_flag u(n) 1");
    EXPECT_EQ(found.units[0].own, "own ends here");
    EXPECT_EQ(found.units[0].rule, "rule has_temporal_mvp_flag");
}

// Range extensions of nine and of four bits, which change nothing of what the own rules read.
TEST(InspectDifferences, ShowsAnExtensionInTheSetThatHasIt) {
    sps_syntax sps;
    sps.extension = bit_writer().u<1>(1).u<8>(0x80).u<9>(0);
    pps_syntax pps;
    pps.extension = bit_writer().u<1>(1).u<8>(0x80).u<1>(0).u<1>(0).ue(0).ue(0);
    const std::size_t sps_bit = sps.payload().size() - 17;
    const std::size_t pps_bit = pps.payload().size() - 12;
    const outcome result =
        differences_of_slice(pps, IDR_W_RADL, begin_of_idr_slice().se(0).trailing_bits(), sps);
    EXPECT_EQ(result.status, 0) << result.err;
    const differences found = differences_in(result.out);
    ASSERT_EQ(found.units.size(), 2U) << result.out;
    EXPECT_EQ(found.units[0].standard,
              "standard " + std::to_string(sps_bit) + " 1 sps_range_extension_flag u(n) 1");
    EXPECT_EQ(found.units[0].own,
              "own " + std::to_string(sps_bit) + " 17 sps_extension_data_flag u(1) 0");
    EXPECT_EQ(found.units[0].rule, "rule knows_extensions");
    EXPECT_EQ(found.units[1].standard,
              "standard " + std::to_string(pps_bit) + " 1 pps_range_extension_flag u(n) 1");
    EXPECT_EQ(found.units[1].rule, "rule knows_extensions");
}

// The current picture is the second reference picture, for which the list modification is there.
TEST(InspectDifferences, ShowsASliceWhoseListModificationHangsOnAnExtension) {
    sps_syntax sps;
    sps.extension = bit_writer().u<1>(1).u<8>(0x10).u<1>(1).u<1>(0).u<2>(0).u<1>(0);
    pps_syntax pps;
    pps.lists_and_merge_level = bit_writer().u<1>(1).ue(0).u<1>(0);
    pps.extension = bit_writer().u<1>(1).u<8>(0x10).u<1>(1).u<1>(0).u<1>(0);
    bit_writer slice = bit_writer().u<1>(1).ue(0).ue(1).u<8>(5).u<1>(0);
    slice.ue(1).ue(0).ue(0).u<1>(1);  // the set
    slice.u<1>(0).u<1>(0);            // num_ref_idx_active_override_flag, and no modification
    slice.ue(0).se(0).trailing_bits();
    const outcome result = differences_of_slice(pps, TRAIL_R, slice, sps);
    EXPECT_EQ(result.status, 0) << result.err;
    const differences found = differences_in(result.out);
    ASSERT_EQ(found.units.size(), 3U) << result.out;
    EXPECT_EQ(found.units[2].standard,
              "standard 21 1 ref_pic_lists_modification.ref_pic_list_modification_flag_l0 u(n) 0");
    EXPECT_EQ(found.units[2].own, "own ends here");
    EXPECT_EQ(found.units[2].rule, "rule counts_current_picture");
}

TEST(InspectDifferences, TellsFaultsOfTheStandardReadingOnly) {
    // hm_ra16 has none by the standard's rules, and its SPS cannot be read by the library's own.
    const outcome good = run({"differences", stream_path("hm_ra16")});
    EXPECT_EQ(good.status, 0);
    EXPECT_EQ(good.err, "");
    const outcome broken = program({"differences", "-"}).input(bytes("000001 460140")).run();
    EXPECT_EQ(broken.status, 1);
    EXPECT_EQ(broken.out, "0 of 1 NAL units are read differently\n");
    EXPECT_EQ(broken.err,
              "kovran: standard input: unit 0 at 3: the access unit delimiter cannot be read: "
              "malformed trailing bits: rbsp_stop_one_bit at bit 3 is 0\n");
}

// log2_max_pic_order_cnt_lsb_minus4 is 13, which the standard's rules refuse, so that the slice has
// no SPS.
TEST(InspectDifferences, NamesAParameterSetThatOnlyTheOwnRulesRead) {
    sps_syntax sps;
    sps.log2_max_pic_order_cnt_lsb_minus4 = bit_writer().ue(13);
    const outcome result =
        differences_of_slice({}, IDR_W_RADL, begin_of_idr_slice().se(0).trailing_bits(), sps);
    const differences found = differences_in(result.out);
    ASSERT_EQ(found.units.size(), 2U) << result.out;
    EXPECT_EQ(found.units[0].rule, "rule max_log2_max_pic_order_cnt_lsb_minus4");
    EXPECT_EQ(
        found.units[1].standard,
        "standard ends here: SPS 0, which this slice uses, is missing: the SPS of unit 1 could "
        "not be read");
    EXPECT_EQ(found.units[1].rule, "rule max_log2_max_pic_order_cnt_lsb_minus4, in unit 1");
}

// No element of the message is there to be read by a rule.
TEST(InspectDifferences, NamesTheRuleWhereTheDataEndsBeforeTheFirstElement) {
    sps_syntax sps;
    sps.vui = bit_writer().u<1>(1).u<6>(0);
    sps.vui.u<1>(1).u<3>(0);  // frame_field_info_present_flag: there is a pic_struct
    const std::string stream = annex_b_unit(VPS_NUT, vps_syntax().rbsp()) +
                               annex_b_unit(SPS_NUT, sps.rbsp()) + bytes("000001 4e01 0103");
    const outcome result = program({"differences", "--all", "-"}).input(stream).run();
    const differences found = differences_in(result.out);
    ASSERT_EQ(found.units.size(), 1U) << result.out;
    EXPECT_EQ(found.units[0].rule, "rule data_may_end");
}

TEST(InspectDifferences, FailsWithoutInput) {
    EXPECT_EQ(run({"differences"}).status, 2);
    EXPECT_EQ(run({"differences", stream_path("hm_still"), "--rules", "own"}).status, 2);
    const temporary_folder folder;
    EXPECT_EQ(run({"differences", folder.file("missing")}).status, 2);
    EXPECT_EQ(run({"differences", folder.write("empty", "")}).status, 2);
    const outcome none = run({"differences", folder.write("none", "no video")});
    EXPECT_EQ(none.status, 1);
    EXPECT_EQ(none.out, "0 of 0 NAL units are read differently\n");
}

// The first message activates SPS 1, by which the second one has elements; the third one names SPS
// 16. Only the rule about its identifier differs.
TEST(InspectDifferences, ReadsAMessageByTheSetThatAnEarlierOneActivates) {
    sps_syntax sps;
    sps.sps_seq_parameter_set_id = bit_writer().ue(1);
    sps.vui = bit_writer().u<1>(1).u<6>(0).u<1>(1).u<3>(0);  // frame_field_info_present_flag
    const std::string stream =
        annex_b_unit(VPS_NUT, vps_syntax().rbsp()) + annex_b_unit(SPS_NUT, sps_syntax().rbsp()) +
        annex_b_unit(SPS_NUT, sps.rbsp()) + bytes("000001 4e01 810202a0 010105 00020880 80");
    const differences found =
        differences_in(program({"differences", "--all", "-"}).input(stream).run().out);
    ASSERT_EQ(found.units.size(), 1U);
    EXPECT_EQ(found.units[0].own, "own 72 9 buffering_period.bp_seq_parameter_set_id ue(v) 16");
    EXPECT_EQ(found.units[0].rule, "rule max_sps_id");
}
}  // namespace
}  // namespace kovran::test
