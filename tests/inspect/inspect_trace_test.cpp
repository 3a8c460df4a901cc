#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstddef>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "byte_string.h"
#include "program.h"
#include "reading_elements.h"
#include "readings.h"
#include "temporary_folder.h"

namespace kovran::test {
namespace {

// ---- What the program writes

struct element {
    std::string place;  // in the file, byte.bit
    std::size_t bit = 0;
    std::size_t width = 0;
    std::string path;
    std::string descriptor;
    std::string value;
};

std::string to_string(const element& each) {
    return each.place + ' ' + std::to_string(each.bit) + ' ' + std::to_string(each.width) + ' ' +
           each.path + ' ' + each.descriptor + ' ' + each.value;
}

struct traced_unit {
    std::string heading;
    std::vector<element> elements;
};

// Columns are two spaces or more apart; the last one may be empty.
std::vector<std::string> columns_of(const std::string& line) {
    std::vector<std::string> columns;
    for (std::size_t begin = line.find_first_not_of(' '); begin != std::string::npos;) {
        const std::size_t end = line.find("  ", begin);
        columns.push_back(line.substr(begin, end - begin));
        begin = line.find_first_not_of(' ', end);
    }
    columns.resize(std::max<std::size_t>(columns.size(), 6));
    return columns;
}

element element_of(const std::string& line) {
    const std::vector<std::string> columns = columns_of(line);
    EXPECT_EQ(columns.size(), 6U) << line;
    EXPECT_FALSE(columns[4].empty()) << line;
    return {columns[0], std::stoul(columns[1]), std::stoul(columns[2]), columns[3], columns[4],
            columns[5]};
}

std::vector<traced_unit> units_of(const std::string& trace) {
    std::vector<traced_unit> units;
    std::istringstream lines(trace);
    for (std::string line; std::getline(lines, line);) {
        if (line.rfind("unit ", 0) == 0) {
            units.push_back({line, {}});
        } else if (units.empty() && line.rfind("rules: ", 0) == 0) {
            continue;
        } else if (units.empty()) {
            ADD_FAILURE() << line;
        } else {
            units.back().elements.push_back(element_of(line));
        }
    }
    return units;
}

std::string leaf_of(const std::string& path) {
    // Not the one of user_data_payload_byte[0..6].
    const std::size_t end = path.back() == ']' ? path.rfind('[') : path.size();
    return path.substr(path.rfind('.', end) + 1);
}

// ---- What the other reader says

// The extensions of a VPS are not read, by the library's own rules those of an SPS or a PPS
// neither.
void pass_over_extensions(std::vector<expected_element>& all, const std::string& rules) {
    pass_over_extension(all, "vps_extension_flag");
    if (rules == "own") {
        pass_over_extension(all, "sps_extension_present_flag");
        pass_over_extension(all, "pps_extension_present_flag");
    }
}

// ---- Comparisons

void expect_element(const element& each, const expected_element& expected) {
    EXPECT_EQ(leaf_of(each.path), expected.name) << to_string(each);
    EXPECT_EQ(each.bit, expected.bit) << to_string(each);
    EXPECT_EQ(each.width, expected.width) << to_string(each);
    EXPECT_EQ(each.value, expected.value) << to_string(each);
}

void expect_elements(const std::vector<element>& elements,
                     const std::vector<expected_element>& expected, std::size_t count) {
    ASSERT_GE(elements.size(), count);
    ASSERT_GE(expected.size(), count);
    for (std::size_t i = 0; i < count; ++i) {
        expect_element(elements[i], expected[i]);
        if (testing::Test::HasFailure()) {
            return;
        }
    }
}

// Where a unit's elements stand in the file: its bytes but the emulation prevention bytes.
void expect_places(const std::vector<element>& elements, const std::string& stream,
                   const nlohmann::json& unit) {
    const auto begin = unit.at("offset").get<std::size_t>();
    const std::size_t end = begin + unit.at("size").get<std::size_t>();
    std::vector<std::size_t> places;
    std::size_t zeros = 0;
    for (std::size_t i = begin + 2; i < end; ++i) {
        const bool emulation_prevention = zeros >= 2 && stream[i] == 3;
        zeros = !emulation_prevention && stream[i] == 0 ? zeros + 1 : 0;
        if (!emulation_prevention) {
            places.push_back(i);
        }
    }
    for (const element& each : elements) {
        // What is read behind the end of a broken unit has no place.
        if (each.bit / 8 < places.size()) {
            ASSERT_EQ(each.place,
                      std::to_string(places[each.bit / 8]) + '.' + std::to_string(each.bit % 8))
                << to_string(each);
        }
    }
}

// Without gaps; in an SEI unit there are the bits that fill up a payload.
void expect_elements_in_a_row(const std::vector<element>& elements, bool gaps) {
    std::size_t bit = 0;
    for (const element& each : elements) {
        ASSERT_TRUE(gaps ? each.bit >= bit : each.bit == bit) << to_string(each);
        bit = each.bit + each.width;
    }
}

void expect_heading(const std::string& heading, std::size_t index, const nlohmann::json& unit) {
    const std::string start =
        "unit " + std::to_string(index) + " at " + unit.at("offset").dump() + ": ";
    const std::string end = ", " + unit.at("size").dump() + " bytes, layer " +
                            unit.at("nuh_layer_id").dump() + ", temporal id " +
                            std::to_string(unit.at("nuh_temporal_id_plus1").get<int>() - 1);
    ASSERT_GE(heading.size(), start.size() + end.size());
    EXPECT_EQ(heading.substr(0, start.size()), start);
    EXPECT_EQ(heading.substr(heading.size() - end.size()), end);
}

// A message that the reading could not take apart.
bool is_opaque(const expected_element& each) {
    return each.name.rfind("sei_payload(", 0) == 0;
}

// All elements of all messages.
void expect_messages(std::vector<element> elements, const nlohmann::json& unit) {
    std::vector<expected_element> expected = message_elements_of(unit);
    elements.erase(std::remove_if(elements.begin(), elements.end(),
                                  [&expected](const element& each) {
                                      const std::string name = leaf_of(each.path);
                                      return name.rfind("rbsp_", 0) == 0 ||
                                             is_left_out(name, expected);
                                  }),
                   elements.end());
    for (expected_element& each : expected) {
        each.name = is_opaque(each) ? "payload" : each.name;
    }
    expect_elements(elements, expected, std::min(elements.size(), expected.size()));
    EXPECT_EQ(elements.size(), expected.size());
}

// What the library's own rules read: some elements of three messages, and type and size of all;
// those that need an SPS only where that can be read.
void expect_known_messages(const std::vector<element>& elements,
                           const std::vector<expected_element>& reading, bool prefix,
                           bool sps_read) {
    std::map<std::size_t, const element*> by_bit;
    for (const element& each : elements) {
        by_bit[each.bit] = &each;
    }
    std::string payload_type;
    for (const expected_element& expected : reading) {
        if (expected.name == "last_payload_type_byte") {
            payload_type = expected.value;
        }
        const bool read = prefix && is_parsed_message(payload_type) &&
                          (sps_read || payload_type == "129") &&
                          !is_payload_padding(expected.name) && !is_opaque(expected);
        if (read || is_sei_framing(expected.name)) {
            ASSERT_EQ(by_bit.count(expected.bit), 1U) << expected.name;
            expect_element(*by_bit[expected.bit], expected);
        }
    }
}

bool is_sei(unsigned int type) {
    return type == 39 || type == 40;
}

// The place of the first element of a slice segment header that the library's own rules do not
// read.
std::size_t end_of_slice(const std::vector<expected_element>& reading) {
    const auto end = std::find_if(reading.begin(), reading.end(), [](const expected_element& each) {
        return is_behind_list_modification(each.name);
    });
    return static_cast<std::size_t>(end - reading.begin());
}

// NOLINTNEXTLINE(readability-identifier-naming): the name of a suite
class InspectTraceOfStreams : public testing::TestWithParam<std::string> {
protected:
    // Checks headings, places and what the rules have nothing to do with, then calls
    // expect_unit(reading, elements, expected) for each unit of the base layer that has a reading.
    template <class ExpectUnit>
    void expect_units(const std::string& rules, ExpectUnit expect_unit) {
        const nlohmann::json reading = units_of_reading(GetParam());
        const std::string stream = read_file(stream_path(GetParam()));
        const std::string trace = run({"trace", stream_path(GetParam()), "--rules", rules}).out;
        EXPECT_EQ(trace.substr(0, trace.find('\n')), "rules: " + rules);
        const std::vector<traced_unit> traced = units_of(trace);
        ASSERT_EQ(traced.size(), reading.size());
        for (std::size_t i = 0; i < traced.size() && !HasFailure(); ++i) {
            SCOPED_TRACE(traced[i].heading);
            expect_heading(traced[i].heading, i, reading[i]);
            const auto type = reading[i].at("nal_unit_type").get<unsigned int>();
            const std::vector<element>& elements = traced[i].elements;
            expect_places(elements, stream, reading[i]);
            expect_elements_in_a_row(elements, is_sei(type));
            if (reading[i].at("nuh_layer_id") != 0) {
                EXPECT_TRUE(elements.empty());
                continue;
            }
            std::vector<expected_element> expected = elements_of(reading[i]);
            if (!expected.empty()) {
                pass_over_extensions(expected, rules);
                put_slice_extension_into_bytes(expected);
                expect_unit(reading[i], elements, expected);
            }
        }
    }
};

TEST_P(InspectTraceOfStreams, ShowsTheElementsOfTheReadingWhereTheyStand) {
    expect_units("standard", [](const nlohmann::json& unit, const std::vector<element>& elements,
                                const std::vector<expected_element>& expected) {
        if (is_sei(unit.at("nal_unit_type"))) {
            expect_messages(elements, unit);
            return;
        }
        expect_elements(elements, expected, expected.size());
        EXPECT_EQ(elements.size(), expected.size());
    });
}

// What the encoders got wrong: a message in the wrong kind of unit; buffering periods without HRD
// parameters in the SPS, which tell how long their elements are; and a short-term set
// with codes of too many zeros, which the other reader refuses with all that goes by that SPS.
TEST_P(InspectTraceOfStreams, HasFaultsOnlyWhereTheEncoderMadeThem) {
    const outcome result = run({"trace", stream_path(GetParam())});
    const std::string prefix = "kovran: " + stream_path(GetParam()) + ": ";
    if (GetParam() == "hrd_novuihrd") {
        EXPECT_EQ(result.err, prefix +
                                  "unit 4 at 97: SEI message buffering_period cannot be read: "
                                  "bp_seq_parameter_set_id at bit 16 is 0; "
                                  "reading cannot go on from there\n");
    } else if (GetParam() == "more_sei_misc") {
        EXPECT_EQ(result.err, prefix +
                                  "unit 22 at 2180: SEI message green_metadata stands in a suffix "
                                  "SEI unit, where its type is reserved\n");
    } else if (GetParam() == "mprps_b3") {
        const std::string first = prefix +
                                  "unit 1 at 32: the SPS cannot be read: "
                                  "the data ends before the end of "
                                  "st_ref_pic_set[0].delta_poc_s0_minus1[0] at bit 193\n";
        EXPECT_EQ(result.err.substr(0, first.size()), first);
    } else {
        EXPECT_EQ(result.err, "");
        EXPECT_EQ(result.status, 0);
    }
}

TEST_P(InspectTraceOfStreams, ShowsTheElementsUpToTheFirstThatTheOwnRulesReadOtherwise) {
    const bool chained = has_chained_sets(units_of_reading(GetParam()));
    expect_units("own", [&](const nlohmann::json& unit, const std::vector<element>& elements,
                            const std::vector<expected_element>& expected) {
        const auto type = unit.at("nal_unit_type").get<unsigned int>();
        if (is_sei(type)) {
            expect_known_messages(elements, expected, type == 39, !chained);
            return;
        }
        std::size_t common = expected.size();
        bool whole = !chained;
        if (type == 32) {
            common = index_of(expected, "nal_hrd_parameters_present_flag");
            whole = common == expected.size();
        } else if (type == 33) {
            // A reading of the VPS that is lost leaves no more of the SPS than its identifier.
            common = GetParam() == "more_ed_vpshrd" ? 1 : first_of_a_chained_prediction(expected);
        } else if (type == 34 && chained) {
            common = 2;  // the identifiers: the SPS could not be read
        } else if (type < 32) {
            // Without its parameter sets a slice is read up to the identifier of the PPS.
            const std::size_t flag = index_of(expected, "slice_temporal_mvp_enabled_flag");
            common = chained ? index_of(expected, "slice_pic_parameter_set_id") + 1
                             : std::min(flag, end_of_slice(expected));
            whole = !chained && common != flag;
        }
        expect_elements(elements, expected, common);
        if (whole) {
            EXPECT_EQ(elements.size(), common);
        }
    });
}

INSTANTIATE_TEST_SUITE_P(AllStreams, InspectTraceOfStreams, testing::ValuesIn(stream_names()),
                         [](const testing::TestParamInfo<std::string>& stream) {
                             return stream.param;
                         });

// ---- By hand

TEST(InspectTrace, HasAColumnForEachFact) {
    const outcome result = program({"trace", "-"}).input(bytes("000001 460150")).run();
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "");
    const std::string path_end(58 - 8, ' ');
    EXPECT_EQ(result.out.substr(0, result.out.find("rbsp_stop_one_bit")),
              "rules: standard\n"
              "unit 0 at 3: AUD_NUT, 3 bytes, layer 0, temporal id 0\n"
              "         5.0         0      3  pic_type" +
                  path_end +
                  "  u(n)    2\n"
                  "         5.3         3      1  ");
    const std::vector<traced_unit> units = units_of(result.out);
    ASSERT_EQ(units.size(), 1U);
    ASSERT_EQ(units[0].elements.size(), 6U);
    EXPECT_EQ(to_string(units[0].elements[0]), "5.0 0 3 pic_type u(n) 2");
    EXPECT_EQ(to_string(units[0].elements[1]), "5.3 3 1 rbsp_stop_one_bit f(1) 1");
    EXPECT_EQ(to_string(units[0].elements[5]), "5.7 7 1 rbsp_alignment_zero_bit f(1) 0");
}

// 4e01, 100 and 4 for type and size, 00 00 01 02 with an emulation prevention byte, 80.
TEST(InspectTrace, CountsPlacesThroughEmulationPreventionBytes) {
    const std::string stream = bytes("000001 4e01 64 04 0000 03 0102 80");
    const std::vector<traced_unit> units =
        units_of(program({"trace", "-"}).input(stream).run().out);
    ASSERT_EQ(units.size(), 1U);
    ASSERT_GE(units[0].elements.size(), 4U);
    EXPECT_EQ(to_string(units[0].elements[0]),
              "5.0 0 8 payload_type_100.last_payload_type_byte u(8) 100");
    EXPECT_EQ(to_string(units[0].elements[1]),
              "6.0 8 8 payload_type_100.last_payload_size_byte u(8) 4");
    EXPECT_EQ(to_string(units[0].elements[2]), "7.0 16 32 payload_type_100.payload bytes 00000102");
    EXPECT_EQ(to_string(units[0].elements[3]), "12.0 48 1 rbsp_stop_one_bit f(1) 1");
}

TEST(InspectTrace, ShowsTheFullBytesOfALongTypeAndSize) {
    const std::string stream = bytes("000001 5001 ff05 01 aa 80");
    const std::vector<traced_unit> units =
        units_of(program({"trace", "-"}).input(stream).run().out);
    ASSERT_EQ(units.size(), 1U);
    ASSERT_GE(units[0].elements.size(), 4U);
    EXPECT_EQ(leaf_of(units[0].elements[0].path), "ff_byte");
    EXPECT_EQ(units[0].elements[0].value, "255");
    EXPECT_EQ(leaf_of(units[0].elements[1].path), "last_payload_type_byte");
    EXPECT_EQ(units[0].elements[1].value, "5");
    EXPECT_EQ(units[0].elements[1].bit, 8U);
    EXPECT_EQ(leaf_of(units[0].elements[2].path), "last_payload_size_byte");
    EXPECT_EQ(units[0].elements[3].value, "aa");
}

TEST(InspectTrace, CountsPlacesFromTheStartOfALengthPrefixedFile) {
    const std::string stream = length_prefixed({bytes("460110"), bytes("460150")}, 4);
    const outcome result = program({"trace", "-", "--format", "length32"}).input(stream).run();
    EXPECT_EQ(result.status, 0);
    const std::vector<traced_unit> units = units_of(result.out);
    ASSERT_EQ(units.size(), 2U);
    EXPECT_EQ(units[1].heading, "unit 1 at 11: AUD_NUT, 3 bytes, layer 0, temporal id 0");
    ASSERT_FALSE(units[1].elements.empty());
    EXPECT_EQ(to_string(units[1].elements[0]), "13.0 0 3 pic_type u(n) 2");
}

std::vector<std::string> headings_of(const std::vector<std::string>& arguments) {
    std::vector<std::string> headings;
    for (const traced_unit& unit : units_of(run(arguments).out)) {
        headings.push_back(unit.heading.substr(0, unit.heading.find(',')));
    }
    return headings;
}

TEST(InspectTrace, SelectsUnits) {
    using list = std::vector<std::string>;
    const std::string path = stream_path("hm_still");
    EXPECT_EQ(headings_of({"trace", path, "--nal", "3"}), list{"unit 3 at 76: IDR_W_RADL"});
    EXPECT_EQ(headings_of({"trace", path, "--type", "33,PPS_NUT"}),
              (list{"unit 1 at 32: SPS_NUT", "unit 2 at 66: PPS_NUT"}));
    EXPECT_EQ(headings_of({"trace", path, "--limit", "2"}),
              (list{"unit 0 at 4: VPS_NUT", "unit 1 at 32: SPS_NUT"}));
    EXPECT_EQ(headings_of({"trace", path, "--limit", "1", "--type", "34"}),
              list{"unit 2 at 66: PPS_NUT"});
    EXPECT_EQ(headings_of({"trace", path, "--nal", "3", "--type", "33"}), list{});
    EXPECT_EQ(headings_of({"trace", path, "--nal", "5"}), list{});
}

// The slice needs the parameter sets before it.
TEST(InspectTrace, ReadsUnitsThatItDoesNotShow) {
    const std::string path = stream_path("hm_still");
    const std::vector<traced_unit> all = units_of(run({"trace", path}).out);
    const outcome result = run({"trace", path, "--nal", "3"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "");
    const std::vector<traced_unit> one = units_of(result.out);
    ASSERT_EQ(one.size(), 1U);
    ASSERT_EQ(one[0].elements.size(), all.at(3).elements.size());
    EXPECT_EQ(leaf_of(one[0].elements.back().path), "alignment_bit_equal_to_zero");
}

// An empty unit, one of nothing but trailing bits, and one of a payloadType that does not end;
// before each a unit whose bytes are forgotten.
TEST(InspectTrace, ShowsNothingOfASeiUnitWithoutMessages) {
    for (const char* const unit : {"5001", "4e01 80", "4e01 ffff"}) {
        const outcome result =
            program({"trace", "-"}).input(bytes("000001 460150 000001") + bytes(unit)).run();
        EXPECT_EQ(result.err,
                  "kovran: standard input: unit 1 at 9: "
                  "the SEI messages are not followed by valid trailing bits\n");
        EXPECT_EQ(units_of(result.out).at(1).elements.size(), 0U) << unit;
    }
}

TEST(InspectTrace, TellsFaultsAndGoesOn) {
    // An access unit delimiter without a stop bit, a PPS of 16 bits whose last 7 are the beginning
    // of an Exp-Golomb code, and a good delimiter.
    const std::string stream = bytes("000001 460140 000001 4401 c180 000001 460150");
    const outcome result = program({"trace", "-"}).input(stream).run();
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err,
              "kovran: standard input: unit 0 at 3: the access unit delimiter cannot be read: "
              "malformed trailing bits: rbsp_stop_one_bit at bit 3 is 0\n"
              "kovran: standard input: unit 1 at 9: the PPS cannot be read: "
              "the data ends before the end of num_ref_idx_l0_default_active_minus1 at bit 9\n");
    const std::vector<traced_unit> units = units_of(result.out);
    ASSERT_EQ(units.size(), 3U);
    ASSERT_EQ(units[1].elements.size(), 8U);
    EXPECT_EQ(to_string(units[1].elements[0]), "11.0 0 1 pps_pic_parameter_set_id ue(v) 0");
    EXPECT_EQ(to_string(units[1].elements[1]), "11.1 1 1 pps_seq_parameter_set_id ue(v) 0");
    EXPECT_EQ(units[1].elements[7].path, "num_ref_idx_l0_default_active_minus1");
    EXPECT_EQ(units[1].elements[7].bit, 9U);
    EXPECT_EQ(units[2].elements.size(), 6U);
}

TEST(InspectTrace, FailsWithoutInput) {
    EXPECT_EQ(run({"trace"}).status, 2);
    const temporary_folder folder;
    const outcome missing = run({"trace", folder.file("missing")});
    EXPECT_EQ(missing.status, 2);
    EXPECT_EQ(missing.out, "");
    EXPECT_NE(missing.err, "");
    EXPECT_EQ(run({"trace", folder.write("empty", "")}).status, 2);
    const outcome none = run({"trace", folder.write("none", "no video")});
    EXPECT_EQ(none.status, 1);
    EXPECT_EQ(none.out, "rules: standard\n");
    EXPECT_NE(none.err.find("no NAL unit found"), std::string::npos);
}

TEST(InspectTrace, RejectsWrongArguments) {
    const std::string path = stream_path("hm_still");
    for (const std::vector<std::string>& options :
         std::vector<std::vector<std::string>>{{"--nal", "x"},
                                               {"--nal", "-1"},
                                               {"--limit", "1x"},
                                               {"--type", "64"},
                                               {"--json"},
                                               {"--rules", "other"}}) {
        std::vector<std::string> arguments = {"trace", path};
        arguments.insert(arguments.end(), options.begin(), options.end());
        const outcome result = run(arguments);
        EXPECT_EQ(result.status, 2) << options[0];
        EXPECT_EQ(result.out, "") << options[0];
    }
}

}  // namespace
}  // namespace kovran::test
