#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstddef>
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

std::vector<std::string> lines_of(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(line);
    }
    return lines;
}

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
    const std::vector<std::string> lines = lines_of(text);
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
    for (const difference& each : found.units) {
        SCOPED_TRACE(each.place);
        EXPECT_EQ(each.rule.find("not known"), std::string::npos);
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

INSTANTIATE_TEST_SUITE_P(AllStreams, InspectDifferencesOfStreams, testing::ValuesIn(stream_names()),
                         [](const testing::TestParamInfo<std::string>& stream) {
                             return stream.param;
                         });

// The current picture may be the second reference picture, in a stream of profile 9: only the
// extension data of the PPS tell.
TEST(InspectDifferences, ShowsASliceWhoseListModificationHangsOnExtensionData) {
    sps_syntax sps;
    sps.profile_tier_level = bit_writer().u<2>(0).u<1>(0).u<5>(9).u<32>(1U << (31 - 9)).u<4>(0xF);
    sps.profile_tier_level.u<43>(0).u<1>(0).u<8>(93);
    pps_syntax pps;
    pps.lists_and_merge_level = bit_writer().u<1>(1).ue(0).u<1>(0);
    pps.extension = bit_writer().u<1>(1).u<8>(0x10).u<1>(1);
    bit_writer slice = bit_writer().u<1>(1).ue(0).ue(1).u<8>(5).u<1>(0);
    slice.ue(1).ue(0).ue(0).u<1>(1);  // the set
    slice.u<1>(0).trailing_bits();
    const std::string stream = annex_b_unit(VPS_NUT, vps_syntax().rbsp()) +
                               annex_b_unit(SPS_NUT, sps.rbsp()) +
                               annex_b_unit(PPS_NUT, pps.rbsp()) + annex_b_unit(TRAIL_R, slice);
    const outcome result = program({"differences", "--all", "-"}).input(stream).run();
    const differences found = differences_in(result.out);
    ASSERT_EQ(found.units.size(), 1U) << result.out << result.err;
    EXPECT_EQ(found.units[0].standard,
              "standard ends here: the slice segment header cannot be read: "
              "num_ref_idx_active_override_flag at bit 20 is 0; this contradicts what was read "
              "before");
    EXPECT_EQ(found.units[0].own, "own ends here");
    EXPECT_EQ(found.units[0].rule, "rule can_count_pictures");
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

}  // namespace
}  // namespace kovran::test
