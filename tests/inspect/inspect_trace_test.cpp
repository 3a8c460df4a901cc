#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "byte_string.h"
#include "program.h"
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

std::vector<traced_unit> units_of(const std::string& trace) {
    std::vector<traced_unit> units;
    std::istringstream lines(trace);
    for (std::string line; std::getline(lines, line);) {
        if (line.rfind("unit ", 0) == 0) {
            units.push_back({line, {}});
            continue;
        }
        element& each = units.at(units.size() - 1).elements.emplace_back();
        std::istringstream columns(line);
        columns >> each.place >> each.bit >> each.width >> each.path >> each.descriptor >>
            each.value;
        EXPECT_TRUE(columns || each.descriptor == "bytes") << line;
    }
    return units;
}

std::string leaf_of(const std::string& path) {
    return path.substr(path.rfind('.') + 1);
}

// ---- What the other reader says

struct expected_element {
    std::string name;
    std::int64_t value;
    std::size_t bit;
    std::size_t width;
};

// In the standard's words.
std::string standard_name(const std::string& name) {
    static const std::map<std::string, std::string> other_names = {
        {"matrix_coefficients", "matrix_coeffs"},
        {"sps_extension_present_flag", "sps_extension_flag"},
        {"scaling_list_delta_coeff", "scaling_list_delta_coef"},
    };
    const std::string base = name.substr(0, name.find('['));
    const auto found = other_names.find(base);
    return found == other_names.end() ? name : found->second + name.substr(base.size());
}

bool is_reserved(const std::string& name) {
    return name.find("reserved_zero") != std::string::npos;
}

// Reserved bits, which that reader takes 24 at a time, are put together again.
std::vector<expected_element> elements_of(const nlohmann::json& unit) {
    constexpr std::size_t header_bits = 16;
    std::vector<expected_element> all;
    for (const nlohmann::json& each : unit.at("elements")) {
        const std::string name = standard_name(each.at(0));
        const auto value = each.at(1).get<std::int64_t>();
        const auto width = each.at(3).get<std::size_t>();
        if (is_reserved(name) && !all.empty() && all.back().name == name) {
            all.back().value = all.back().value << width | value;
            all.back().width += width;
        } else {
            all.push_back({name, value, each.at(2).get<std::size_t>() - header_bits, width});
        }
    }
    return all;
}

bool is_extension_flag(const std::string& name) {
    return name == "vps_extension_flag" || name == "sps_extension_flag" ||
           name == "pps_extension_present_flag";
}

std::size_t index_of(const std::vector<expected_element>& all, const std::string& name,
                     std::size_t from = 0) {
    const auto found =
        std::find_if(all.begin() + static_cast<std::ptrdiff_t>(from), all.end(),
                     [&](const expected_element& each) { return each.name == name; });
    return static_cast<std::size_t>(found - all.begin());
}

// The bits of an extension are passed over in one go, as data without a value.
void put_extension_together(std::vector<expected_element>& all) {
    const auto flag = std::find_if(all.begin(), all.end(), [](const expected_element& each) {
        return is_extension_flag(each.name);
    });
    if (flag == all.end() || flag->value == 0) {
        return;
    }
    const auto stop = std::find_if(flag, all.end(), [](const expected_element& each) {
        return each.name == "rbsp_stop_one_bit";
    });
    const expected_element data = {flag->name.substr(0, 3) + "_extension_data_flag", 0,
                                   flag->bit + 1, stop->bit - flag->bit - 1};
    all.erase(flag + 1, stop);
    all.insert(flag + 1, data);
}

// The first element of an SPS that is read otherwise: of a set that is predicted no pictures are
// kept, so that a set predicted from that has one pair of flags; all.size() when there is none.
std::size_t first_of_a_chained_prediction(const std::vector<expected_element>& all) {
    const std::size_t end = index_of(all, "long_term_ref_pics_present_flag");
    const std::string flag = "inter_ref_pic_set_prediction_flag";
    bool predicted_before = false;
    for (std::size_t set = index_of(all, flag); set < end; set = index_of(all, flag, set + 1)) {
        const bool predicted = all[set].value != 0;
        const std::size_t second_pair = index_of(all, "used_by_curr_pic_flag[1]", set);
        if (predicted && predicted_before && second_pair < index_of(all, flag, set + 1)) {
            return second_pair;
        }
        predicted_before = predicted;
    }
    return all.size();
}

// Streams in whose SPSs a set is predicted from a predicted one.
const std::set<std::string> streams_with_chained_sets = {
    "hm_2tids",         "hm_deblock_metric", "hm_depslices",     "hm_field",
    "hm_hash_csum",     "hm_hrd_subpic",     "hm_ld_b",          "hm_ra16",
    "hm_ra8_cra",       "hm_rext400",        "hm_rext444_all",   "hm_scaling_file444",
    "hm_slices_bytes",  "hm_tiles_nu",       "hm_tiles_u",       "hm_vui",
    "hm_wp_b",          "hmx_ext4bits",      "hmx_hrd_lowdelay", "hmx_ids",
    "hmx_listmod_b",    "hmx_listmod_p4",    "hmx_ltr1",         "hmx_ltr3_unused",
    "hmx_ltr_msb_part", "hmx_ltrsps5",       "hmx_pocbits16",    "hmx_sublevel_only",
    "hmx_vps_hrd1",     "hmx_vps_timing",    "scm_act",          "scm_ld420",
};

// ---- Places in the file

// Of every bit behind the NAL unit header.
std::vector<std::string> places_of(const std::string& stream, const nlohmann::json& unit) {
    const auto begin = unit.at("offset").get<std::size_t>();
    const std::size_t end = begin + unit.at("size").get<std::size_t>();
    std::vector<std::string> places;
    std::size_t zeros = 0;
    for (std::size_t i = begin + 2; i < end; ++i) {
        const bool emulation_prevention = zeros >= 2 && stream[i] == 3;
        zeros = !emulation_prevention && stream[i] == 0 ? zeros + 1 : 0;
        for (unsigned int bit = 0; bit < 8 && !emulation_prevention; ++bit) {
            places.push_back(std::to_string(i) + '.' + std::to_string(bit));
        }
    }
    return places;
}

std::string last_line(const std::string& text) {
    const std::size_t end = text.find_last_not_of('\n') + 1;
    const std::size_t begin = text.find_last_of('\n', end == 0 ? 0 : end - 1);
    return text.substr(begin == std::string::npos ? 0 : begin + 1, end);
}

// NOLINTNEXTLINE(readability-identifier-naming): the name of a suite
class InspectTraceOfStreams : public testing::TestWithParam<std::string> {
protected:
    std::vector<traced_unit> trace(const std::vector<std::string>& options) const {
        std::vector<std::string> arguments = {"trace", stream_path(GetParam())};
        arguments.insert(arguments.end(), options.begin(), options.end());
        return units_of(run(arguments).out);
    }

    const nlohmann::json reading = units_of_reading(GetParam());
    const std::string stream = read_file(stream_path(GetParam()));
};

TEST_P(InspectTraceOfStreams, HasEveryElementOfTheParameterSetsInTheReading) {
    const std::vector<traced_unit> traced = trace({});
    ASSERT_EQ(traced.size(), reading.size());
    bool chained = false;
    for (std::size_t i = 0; i < traced.size(); ++i) {
        const auto type = reading[i].at("nal_unit_type").get<unsigned int>();
        if (type < 32 || type > 34 || reading[i].at("nuh_layer_id") != 0 ||
            reading[i].at("elements").empty()) {
            continue;
        }
        SCOPED_TRACE("unit " + std::to_string(i));
        std::vector<expected_element> expected = elements_of(reading[i]);
        put_extension_together(expected);
        const std::size_t common =
            type == 33 ? first_of_a_chained_prediction(expected) : expected.size();
        chained = chained || common < expected.size();
        const std::vector<element>& elements = traced[i].elements;
        ASSERT_GE(elements.size(), common);
        for (std::size_t k = 0; k < common; ++k) {
            const element& each = elements[k];
            ASSERT_EQ(leaf_of(each.path), expected[k].name) << to_string(each);
            ASSERT_EQ(each.bit, expected[k].bit) << to_string(each);
            ASSERT_EQ(each.width, expected[k].width) << to_string(each);
            ASSERT_EQ(each.value, std::to_string(expected[k].value)) << to_string(each);
        }
        if (common == expected.size()) {
            EXPECT_EQ(elements.size(), common);
        }
    }
    EXPECT_EQ(chained, streams_with_chained_sets.count(GetParam()) == 1);
}

TEST_P(InspectTraceOfStreams, HasEveryElementWhereItStandsInTheFile) {
    const std::vector<traced_unit> traced = trace({});
    ASSERT_EQ(traced.size(), reading.size());
    for (std::size_t i = 0; i < traced.size(); ++i) {
        SCOPED_TRACE("unit " + std::to_string(i));
        const std::vector<std::string> places = places_of(stream, reading[i]);
        for (const element& each : traced[i].elements) {
            // What is read behind the end of a broken unit has no place.
            if (each.bit < places.size()) {
                ASSERT_EQ(each.place, places[each.bit]) << to_string(each);
            }
        }
    }
}

TEST_P(InspectTraceOfStreams, HasElementsThatFollowEachOther) {
    for (const traced_unit& unit : trace({})) {
        SCOPED_TRACE(unit.heading);
        std::size_t bit = 0;
        for (const element& each : unit.elements) {
            // Ones and zeros that fill up an SEI payload are no elements of it.
            if (unit.heading.find("SEI_NUT") == std::string::npos) {
                EXPECT_EQ(each.bit, bit) << to_string(each);
            } else {
                EXPECT_GE(each.bit, bit) << to_string(each);
            }
            bit = each.bit + each.width;
        }
    }
}

TEST_P(InspectTraceOfStreams, HasAHeadingForEveryUnit) {
    const std::vector<traced_unit> traced = trace({});
    ASSERT_EQ(traced.size(), reading.size());
    for (std::size_t i = 0; i < traced.size(); ++i) {
        const nlohmann::json& unit = reading[i];
        const std::string& heading = traced[i].heading;
        const std::string start =
            "unit " + std::to_string(i) + " at " + unit.at("offset").dump() + ": ";
        const std::string end =
            ", " + unit.at("size").dump() + " bytes, layer " + unit.at("nuh_layer_id").dump() +
            ", temporal id " +
            std::to_string(unit.at("nuh_temporal_id_plus1").get<unsigned int>() - 1);
        EXPECT_EQ(heading.substr(0, start.size()), start);
        ASSERT_GE(heading.size(), start.size() + end.size());
        EXPECT_EQ(heading.substr(heading.size() - end.size()), end);
    }
}

// SEI messages: every element of the three that are taken apart, and the sizes of the others.
TEST_P(InspectTraceOfStreams, HasEveryElementOfTheMessagesInTheReading) {
    const std::vector<traced_unit> traced = trace({});
    ASSERT_EQ(traced.size(), reading.size());
    for (std::size_t i = 0; i < traced.size(); ++i) {
        const auto type = reading[i].at("nal_unit_type").get<unsigned int>();
        if (type != 39 && type != 40) {
            continue;
        }
        SCOPED_TRACE("unit " + std::to_string(i));
        std::map<std::size_t, const element*> by_bit;
        for (const element& each : traced[i].elements) {
            by_bit[each.bit] = &each;
        }
        std::int64_t message_type = -1;
        for (const expected_element& expected : elements_of(reading[i])) {
            if (expected.name == "last_payload_type_byte") {
                message_type = expected.value;
            }
            const bool read =
                expected.name.find("last_payload_") == 0 || expected.name.find("rbsp_") == 0 ||
                (type == 39 && (message_type == 0 || message_type == 1 || message_type == 129) &&
                 expected.name.find("bit_equal_to_") != 0 &&
                 expected.name != "reserved_payload_extension_data");
            if (!read) {
                continue;
            }
            ASSERT_EQ(by_bit.count(expected.bit), 1U) << expected.name;
            const element& each = *by_bit[expected.bit];
            EXPECT_EQ(leaf_of(each.path), expected.name);
            EXPECT_EQ(each.width, expected.width) << each.path;
            EXPECT_EQ(each.value, std::to_string(expected.value)) << each.path;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(AllStreams, InspectTraceOfStreams, testing::ValuesIn(stream_names()),
                         [](const testing::TestParamInfo<std::string>& stream) {
                             return stream.param;
                         });

}  // namespace
}  // namespace kovran::test
