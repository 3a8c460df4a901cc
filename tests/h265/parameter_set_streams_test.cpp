#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_nal_pps.h>
#include <kovran/h265/h265_nal_reader.h>
#include <kovran/h265/h265_nal_sps.h>
#include <kovran/h265/h265_nal_vps.h>
#include <kovran/h265/h265_trace.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <map>
#include <ostream>
#include <string>
#include <vector>

#include "support/bit_writer.h"
#include "support/parameter_set_elements.h"
#include "support/rbsp.h"
#include "support/rbsp_of_unit.h"
#include "support/stream_reading.h"

namespace kovran {
namespace {

using bytes = std::vector<unsigned char>;
using elements = std::vector<test::element>;

// What the other reader made of a parameter set, up to the extension flag and without reserved
// bits. Positions are those of the RBSP behind the NAL unit header.
struct expected_reading {
    elements all;
    std::vector<std::size_t> positions;
    std::size_t stop_bit = 0;

    std::size_t size() const { return all.size(); }

    // The next element of that name; size() when there is none.
    std::size_t find(const std::string& name, std::size_t from = 0) const {
        const auto found =
            std::find_if(all.begin() + static_cast<std::ptrdiff_t>(from), all.end(),
                         [&](const test::element& element) { return element.name == name; });
        return static_cast<std::size_t>(found - all.begin());
    }

    elements part(std::size_t first, std::size_t last) const {
        return {all.begin() + static_cast<std::ptrdiff_t>(first),
                all.begin() + static_cast<std::ptrdiff_t>(last)};
    }
};

// The names that the other reader gives, in the standard's words.
std::string standard_name(std::string name) {
    const auto replace = [&](const std::string& from, const std::string& to) {
        if (name.compare(0, from.size(), from) == 0) {
            name.replace(0, from.size(), to);
        }
    };
    replace("matrix_coefficients", "matrix_coeffs");
    replace("scaling_list_delta_coeff", "scaling_list_delta_coef");
    replace("sps_extension_present_flag", "sps_extension_flag");
    return name;
}

bool is_reserved(const std::string& name) {
    return name.find("reserved_zero") != std::string::npos;
}

bool is_extension_flag(const std::string& name) {
    return name == "vps_extension_flag" || name == "sps_extension_flag" ||
           name == "pps_extension_present_flag";
}

expected_reading expected_of(const test::unit_reading& unit) {
    constexpr std::size_t header_bits = 16;
    expected_reading expected;
    bool in_record = true;
    for (const auto& element : unit.elements) {
        const std::string name = standard_name(element.at(0));
        const std::size_t position = element.at(2).get<std::size_t>() - header_bits;
        if (in_record && !is_reserved(name)) {
            expected.all.push_back({name, element.at(1)});
            expected.positions.push_back(position);
        }
        in_record = in_record && !is_extension_flag(name);
        if (name == "rbsp_stop_one_bit") {
            expected.stop_bit = position;
        }
    }
    EXPECT_TRUE(unit.elements.empty() || expected.stop_bit != 0);
    return expected;
}

// The first `count` elements that were read are the first `count` of those expected.
void expect_elements(const elements& read, const elements& expected, std::size_t count) {
    ASSERT_LE(count, expected.size());
    ASSERT_LE(count, read.size());
    for (std::size_t i = 0; i < count; ++i) {
        ASSERT_EQ(read[i].name, expected[i].name) << "element " << i;
        ASSERT_EQ(read[i].value, expected[i].value) << read[i].name << ", element " << i;
    }
}

void expect_elements(const elements& read, const elements& expected) {
    expect_elements(read, expected, expected.size());
    EXPECT_EQ(read.size(), expected.size());
}

void copy_bits(const bytes& from, std::size_t first, std::size_t last, test::bit_writer& to) {
    for (std::size_t bit = first; bit < last; ++bit) {
        to.u<1>(static_cast<unsigned int>(from[bit / 8]) >> (7 - bit % 8) & 1U);
    }
}

// Where the short-term sets of an SPS start among its elements, and behind them the next element.
std::vector<std::size_t> starts_of_sets(const expected_reading& expected) {
    const std::size_t count = expected.find("num_short_term_ref_pic_sets");
    const std::size_t end = expected.find("long_term_ref_pics_present_flag");
    std::vector<std::size_t> starts;
    for (std::size_t start = count + 1; start < end;
         start = std::min(end, expected.find("inter_ref_pic_set_prediction_flag", start + 1))) {
        starts.push_back(start);
    }
    EXPECT_EQ(static_cast<std::int64_t>(starts.size()), expected.all[count].value);
    starts.push_back(end);
    return starts;
}

// The first element of an SPS that is read otherwise than by the standard, because its set is
// predicted from a predicted set. The record of that one holds no pictures, so that a single pair
// of flags is read of the next: used_by_curr_pic_flag[1] is where the readings part. The number of
// elements when there is none.
std::size_t first_of_a_chained_prediction(const expected_reading& expected) {
    const std::vector<std::size_t> starts = starts_of_sets(expected);
    bool predicted_before = false;
    for (std::size_t idx = 1; idx + 1 < starts.size(); ++idx) {
        const bool predicted = expected.all[starts[idx]].value != 0;
        const std::size_t second_pair = expected.find("used_by_curr_pic_flag[1]", starts[idx]);
        if (predicted && predicted_before && second_pair < starts[idx + 1]) {
            return second_pair;
        }
        predicted_before = predicted;
    }
    return expected.size();
}

// Each set by itself, given a reference that has its pictures.
void expect_every_set(const bytes& rbsp, const expected_reading& expected) {
    const std::vector<std::size_t> starts = starts_of_sets(expected);
    h265_nal_sps sps;
    sps.num_short_term_ref_pic_sets = static_cast<unsigned int>(starts.size() - 1);
    for (std::size_t idx = 0; idx + 1 < starts.size(); ++idx) {
        const elements set_elements = expected.part(starts[idx], starts[idx + 1]);
        test::bit_writer bits;
        copy_bits(rbsp, expected.positions[starts[idx]], expected.positions[starts[idx + 1]], bits);
        std::vector<h265_st_ref_pic_set> sets(idx);
        if (idx > 0) {
            const auto pairs = std::count_if(
                set_elements.begin(), set_elements.end(), [](const test::element& element) {
                    return element.name.compare(0, 22, "used_by_curr_pic_flag[") == 0;
                });
            sets.back().NumDeltaPocs = pairs > 0 ? static_cast<unsigned int>(pairs - 1) : 0;
        }

        test::rbsp input{bits.bytes()};
        h265_st_ref_pic_set set;
        EXPECT_TRUE(set.parse(input.reader, sps, static_cast<unsigned int>(idx), sets)) << idx;
        EXPECT_EQ(input.reader.bit_position(), bits.size()) << idx;
        expect_elements(test::elements_of(set), set_elements);
    }
}

// The SPS with num_short_term_ref_pic_sets of 0, and what is expected of that.
bytes without_sets(const bytes& rbsp, expected_reading& expected) {
    const std::size_t count = expected.find("num_short_term_ref_pic_sets");
    const std::size_t behind = expected.find("long_term_ref_pics_present_flag");
    test::bit_writer bits;
    copy_bits(rbsp, 0, expected.positions[count], bits);
    bits.ue(0);
    copy_bits(rbsp, expected.positions[behind], expected.stop_bit, bits);
    bits.trailing_bits();

    elements rest = expected.part(behind, expected.size());
    expected.all.resize(count);
    expected.all.push_back({"num_short_term_ref_pic_sets", 0});
    expected.all.insert(expected.all.end(), rest.begin(), rest.end());
    return bits.bytes();
}

void expect_cpb_counts(const std::vector<h265_nal_sub_layer_hrd_parameters>& sub_layers,
                       const h265_hrd_parameters& hrd, bool present) {
    EXPECT_EQ(sub_layers.size(), hrd.cpb_cnt_minus1.size());
    for (unsigned int i = 0; i < sub_layers.size(); ++i) {
        EXPECT_EQ(sub_layers[i].valid, present);
        EXPECT_EQ(sub_layers[i].subLayerId, present ? i : 0);
        EXPECT_EQ(sub_layers[i].cpb_count, present ? hrd.cpb_cnt_minus1[i] + 1 : 0);
        EXPECT_EQ(sub_layers[i].cbr_flag.size(), sub_layers[i].cpb_count);
    }
}

// What an SPS holds beside its elements.
void expect_derived_fields(const h265_nal_sps& sps) {
    unsigned int NumDeltaPocs_before = 0;
    for (unsigned int idx = 0; idx < sps.st_ref_pic_set.size(); ++idx) {
        const h265_st_ref_pic_set& set = sps.st_ref_pic_set[idx];
        const bool predicted = set.inter_ref_pic_set_prediction_flag;
        EXPECT_TRUE(set.valid);
        EXPECT_EQ(set.stRpsIdx, idx);
        EXPECT_EQ(set.RefRpsIdx, predicted ? idx - 1 : idx);
        EXPECT_EQ(set.NumDeltaPocs, set.num_negative_pics + set.num_positive_pics);
        EXPECT_EQ(set.delta_poc_s0_minus1.size(), set.num_negative_pics);
        EXPECT_EQ(set.delta_poc_s1_minus1.size(), set.num_positive_pics);
        if (predicted) {
            const int magnitude = static_cast<int>(set.abs_delta_rps_minus1) + 1;
            EXPECT_EQ(set.deltaRps, set.delta_rps_sign ? -magnitude : magnitude);
            EXPECT_EQ(set.NumDeltaPocs, 0U);
            EXPECT_EQ(set.used_by_curr_pic_flag.size(), NumDeltaPocs_before + 1);
            for (std::size_t j = 0; j < set.used_by_curr_pic_flag.size(); ++j) {
                EXPECT_TRUE(set.use_delta_flag.at(j) || !set.used_by_curr_pic_flag[j]);
            }
        }
        NumDeltaPocs_before = set.NumDeltaPocs;
    }
    EXPECT_EQ(sps.st_ref_pic_set.size(), sps.num_short_term_ref_pic_sets);
    EXPECT_EQ(sps.lt_ref_pic_poc_lsb_sps.size(), sps.num_long_term_ref_pics_sps);
    EXPECT_EQ(sps.sps_max_num_reorder_pics.size(), sps.sps_max_sub_layers_minus1 + 1U);
    EXPECT_EQ(sps.profile_tier_level.sub_layers.size(), sps.sps_max_sub_layers_minus1);
    EXPECT_TRUE(sps.profile_tier_level.valid);
    EXPECT_EQ(sps.scaling_list_data.valid, sps.sps_scaling_list_data_present_flag);

    const h265_vui_parameters& vui = sps.vui_parameters;
    EXPECT_EQ(vui.valid, sps.vui_parameters_present_flag);
    EXPECT_EQ(vui.extended_sar_flag, vui.aspect_ratio_idc == 255);
    EXPECT_EQ(vui.hrd_parameters.valid, vui.vui_hrd_parameters_present_flag);
    expect_cpb_counts(vui.hrd_parameters.nal_sub_layer_hrd, vui.hrd_parameters,
                      vui.hrd_parameters.nal_hrd_parameters_present_flag);
    expect_cpb_counts(vui.hrd_parameters.vcl_sub_layer_hrd, vui.hrd_parameters,
                      vui.hrd_parameters.vcl_hrd_parameters_present_flag);
}

// What the model in tests/model makes of the streams that the other reader refuses. In two of them
// sets are predicted from predicted ones, so that the SPS cannot be read, and its PPS neither.
struct outcome {
    bool success = false;
    std::size_t bits = 0;  // consumed, also behind the end
};

struct model_reading {
    outcome vps;
    outcome sps;
    unsigned int width = 0;
    unsigned int height = 0;
    outcome pps;
};

const std::map<std::string, model_reading> readings_of_the_model = {
    {"htm_3d2d", {{true, 632}, {true, 360}, 192, 128, {true, 48}}},
    {"mprps_b3", {{true, 152}, {false, 420}, 176, 144, {false, 2}}},
    {"shm_2x", {{true, 624}, {false, 488}, 96, 64, {false, 2}}},
    {"x265_42_mvhevc", {{true, 392}, {true, 272}, 176, 144, {true, 48}}},
};

// A host that keeps the parameter sets of a stream as they come.
class host {
public:
    void take_vps(const bytes& rbsp, const expected_reading& expected) {
        const std::size_t first_hrd = expected.find("nal_hrd_parameters_present_flag");
        if (first_hrd != expected.size()) {
            expect_first_hrd_without_common_information(rbsp, expected, first_hrd);
        }

        test::rbsp input{rbsp};
        h265_nal_vps vps;
        vps.cprms_present_flag = {true};  // as the standard infers for the first HRD structure
        EXPECT_TRUE(vps.parse(input.reader));
        EXPECT_TRUE(vps.valid);
        expect_elements(test::elements_of(vps), expected.all);
        EXPECT_EQ(vps.vps_max_num_reorder_pics.size(), vps.vps_max_sub_layers_minus1 + 1U);
        EXPECT_EQ(vps.profile_tier_level.sub_layers.size(), vps.vps_max_sub_layers_minus1);
        EXPECT_EQ(vps.layer_id_included_flag.size(), vps.vps_num_layer_sets_minus1 + 1U);
        vps_store_[vps.vps_video_parameter_set_id] = vps;
    }

    void take_sps(const bytes& rbsp, const expected_reading& expected) {
        expect_every_set(rbsp, expected);
        const std::size_t chained = first_of_a_chained_prediction(expected);
        if (chained == expected.size()) {
            expect_sps(rbsp, expected.all);
            return;
        }
        // Behind that element the two readings have nothing to do with each other, so that the
        // rest is compared without any sets.
        test::rbsp input{rbsp};
        h265_nal_sps sps;
        EXPECT_EQ(sps.parse(input.reader, vps_store_), sps.valid);
        expect_elements(test::elements_of(sps), expected.all, chained);

        expected_reading rest = expected;
        const bytes rest_rbsp = without_sets(rbsp, rest);
        expect_sps(rest_rbsp, rest.all);
    }

    void take_pps(const bytes& rbsp, const expected_reading& expected) {
        test::rbsp input{rbsp};
        h265_nal_pps pps;
        EXPECT_TRUE(pps.parse(input.reader, sps_store_));
        EXPECT_TRUE(pps.valid);
        expect_elements(test::elements_of(pps), expected.all);
        const bool explicit_sizes = pps.tiles_enabled_flag && !pps.uniform_spacing_flag;
        EXPECT_EQ(pps.column_width_minus1.size(), explicit_sizes ? pps.num_tile_columns_minus1 : 0);
        EXPECT_EQ(pps.row_height_minus1.size(), explicit_sizes ? pps.num_tile_rows_minus1 : 0);
        EXPECT_EQ(pps.scaling_list_data.valid, pps.pps_scaling_list_data_present_flag);
    }

    // Some streams the other reader refuses as a whole.
    void take_without_reading(const std::string& stream, h265_nal_unit_type type,
                              const bytes& rbsp) {
        const auto found = readings_of_the_model.find(stream);
        ASSERT_NE(found, readings_of_the_model.end()) << "read by nobody else";
        const model_reading& expected = found->second;
        test::rbsp input{rbsp};
        if (type == VPS_NUT) {
            h265_nal_vps vps;
            EXPECT_EQ(vps.parse(input.reader), expected.vps.success);
            EXPECT_EQ(input.reader.bit_position(), expected.vps.bits);
            vps_store_[vps.vps_video_parameter_set_id] = vps;
        } else if (type == SPS_NUT) {
            h265_nal_sps sps;
            EXPECT_EQ(sps.parse(input.reader, vps_store_), expected.sps.success);
            EXPECT_EQ(input.reader.bit_position(), expected.sps.bits);
            EXPECT_EQ(sps.pic_width_in_luma_samples, expected.width);
            EXPECT_EQ(sps.pic_height_in_luma_samples, expected.height);
            sps_store_[sps.sps_seq_parameter_set_id] = sps;
        } else {
            h265_nal_pps pps;
            EXPECT_EQ(pps.parse(input.reader, sps_store_), expected.pps.success);
            EXPECT_EQ(input.reader.bit_position(), expected.pps.bits);
        }
    }

private:
    // Nothing tells the parser that the first HRD structure of a VPS has common information.
    static void expect_first_hrd_without_common_information(const bytes& rbsp,
                                                            const expected_reading& expected,
                                                            std::size_t first_hrd) {
        test::rbsp input{rbsp};
        h265_nal_vps vps;
        EXPECT_EQ(vps.parse(input.reader), vps.valid);
        expect_elements(test::elements_of(vps), expected.all, first_hrd);
        ASSERT_FALSE(vps.hrd_parameters.empty());
        EXPECT_FALSE(vps.hrd_parameters[0].commonInfPresentFlag);
        EXPECT_FALSE(vps.hrd_parameters[0].nal_hrd_parameters_present_flag);
    }

    void expect_sps(const bytes& rbsp, const elements& expected) {
        test::rbsp input{rbsp};
        h265_nal_sps sps;
        EXPECT_TRUE(sps.parse(input.reader, vps_store_));
        EXPECT_TRUE(sps.valid);
        expect_elements(test::elements_of(sps), expected);
        expect_derived_fields(sps);
        sps_store_[sps.sps_seq_parameter_set_id] = sps;
    }

    h2645_common_base_store<h265_nal_vps> vps_store_;
    h2645_common_base_store<h265_nal_sps> sps_store_;
};

class ParameterSetStreams : public testing::TestWithParam<std::string> {};

TEST_P(ParameterSetStreams, HoldWhatAnotherReaderFound) {
    const test::stream_reading reading = test::load_stream_reading(GetParam());
    const test::exact_bytes stream(reading.bytes);
    host host;
    std::size_t parameter_sets = 0;

    h265_nal_reader reader(nalfmt_annex_b);
    reader.scan(stream.begin(), stream.end());
    for (const test::unit_reading& unit : reading.units) {
        ASSERT_TRUE(reader.found);
        SCOPED_TRACE("NAL unit at byte " + std::to_string(unit.offset));
        ASSERT_EQ(static_cast<std::size_t>(reader.nal_begin - stream.begin()), unit.offset);
        const h265_nal_unit_type type = reader.nal.nal_unit_type;
        if (reader.nal.nuh_layer_id == 0 && type >= VPS_NUT && type <= PPS_NUT) {
            ++parameter_sets;
            bytes rbsp(static_cast<std::size_t>(reader.decode_fence - reader.decode_ptr));
            rbsp.resize(reader.block_decode(rbsp.data(), rbsp.size()));
            const expected_reading expected = expected_of(unit);
            if (expected.all.empty()) {
                host.take_without_reading(GetParam(), type, rbsp);
            } else if (type == VPS_NUT) {
                host.take_vps(rbsp, expected);
            } else if (type == SPS_NUT) {
                host.take_sps(rbsp, expected);
            } else {
                host.take_pps(rbsp, expected);
            }
        }
        reader.scan(reader.cursor, stream.end());
    }
    EXPECT_GE(parameter_sets, 3U);
}

// An element with the place of its bits, counted behind the NAL unit header.
struct placed_element {
    std::string name;
    std::int64_t value = 0;
    std::size_t bit = 0;
    std::size_t width = 0;

    bool operator==(const placed_element& other) const {
        return name == other.name && value == other.value && bit == other.bit &&
               width == other.width;
    }
};

void PrintTo(const placed_element& each, std::ostream* out) {
    *out << each.name << " = " << each.value << " at " << each.bit << ", " << each.width << " bits";
}

// Behind the extension flag of a parameter set, with the names of the last edition.
std::vector<placed_element> extensions_of(const test::unit_reading& unit) {
    const std::string prefix = unit.nal_unit_type == SPS_NUT ? "sps" : "pps";
    const std::map<std::string, std::string> other_names = {
        {"extension_data", prefix + "_extension_data_flag"},
        {"intra_boundary_filtering_disable_flag", "intra_boundary_filtering_disabled_flag"},
        {prefix + "_palette_predictor_initializer_present_flag",
         prefix + "_palette_predictor_initializers_present_flag"}};
    std::vector<placed_element> all;
    bool is_behind_flag = false;
    for (const auto& each : unit.elements) {
        placed_element element = {each[0], each[1], each[2], each[3]};
        element.bit -= 16;
        if (is_behind_flag && element.name.rfind("rbsp_", 0) != 0) {
            const auto other = other_names.find(element.name);
            element.name = other != other_names.end() ? other->second : element.name;
            all.push_back(element);
        }
        is_behind_flag = is_behind_flag || element.name == prefix + "_extension_present_flag";
    }
    return all;
}

std::vector<placed_element> extensions_of(const h265_trace& trace) {
    std::vector<placed_element> all;
    bool is_behind_flag = false;
    for (const h265_traced_element& each : trace.elements) {
        const std::string name = to_string(name_of(trace, each));
        if (is_behind_flag && name.rfind("rbsp_", 0) != 0) {
            all.push_back({name, each.value, each.first_bit, each.width});
            EXPECT_FALSE(each.out_of_range) << name;
        }
        is_behind_flag = is_behind_flag || name == "sps_extension_present_flag" ||
                         name == "pps_extension_present_flag";
    }
    return all;
}

// The encoder of this stream codes delta_dlt_val0 of tables without values, where the syntax has
// none: eight 0 bits in the PPSs of both depth layers, at bits 117 and 121 of their units.
void expect_left_over_bits(const std::string& stream, const test::unit_reading& unit,
                           std::vector<placed_element>& expected, const h265_fault& fault) {
    if (stream != "htm_3d2d" || unit.nal_unit_type != PPS_NUT || unit.nuh_layer_id % 2 == 0) {
        EXPECT_EQ(fault.kind, h265_fault_kind::none) << to_string(fault);
        return;
    }
    const std::size_t first = (unit.nuh_layer_id == 1 ? 117 : 121) - 16;
    for (std::size_t i = 0; i < 8; ++i) {
        expected.push_back({"pps_extension_data_flag", 0, first + i, 1});
    }
    EXPECT_EQ(fault.kind, h265_fault_kind::unknown_extension);
    EXPECT_EQ(to_string(fault.element), "num_val_delta_dlt");
}

// A PPS is the same in every layer.
TEST_P(ParameterSetStreams, HaveTheExtensionsThatAnotherReaderFound) {
    const test::stream_reading stream = test::load_stream_reading(GetParam());
    h2645_common_base_store<h265_nal_vps> vps_store;
    h2645_common_base_store<h265_nal_sps> sps_store;
    h2645_common_base_store<h265_nal_sps> no_sps;
    for (const test::unit_reading& unit : stream.units) {
        const bool is_sps = unit.nal_unit_type == SPS_NUT && unit.nuh_layer_id == 0;
        if (unit.elements.empty() || (!is_sps && unit.nal_unit_type != PPS_NUT)) {
            continue;
        }
        SCOPED_TRACE("NAL unit at byte " + std::to_string(unit.offset));
        test::rbsp input{test::rbsp_of_unit(stream, unit)};
        h265_trace trace;
        h265_fault fault;
        if (is_sps) {
            h265_nal_sps sps;
            EXPECT_TRUE(sps.parse_standard(input.reader, vps_store, trace, &fault));
            sps_store[sps.sps_seq_parameter_set_id] = sps;
        } else {
            h265_nal_pps pps;
            EXPECT_TRUE(pps.parse_standard(
                input.reader, unit.nuh_layer_id == 0 ? sps_store : no_sps, trace, &fault));
        }
        std::vector<placed_element> expected = extensions_of(unit);
        expect_left_over_bits(GetParam(), unit, expected, fault);
        EXPECT_EQ(extensions_of(trace), expected);
    }
}

INSTANTIATE_TEST_SUITE_P(AllStreams, ParameterSetStreams, testing::ValuesIn(test::stream_names()),
                         [](const testing::TestParamInfo<std::string>& stream) {
                             return stream.param;
                         });

}  // namespace
}  // namespace kovran
