#include <kovran/h265/h265_nal_sei_active_parameter_sets.h>
#include <kovran/h265/h265_nal_sei_buffering_period.h>
#include <kovran/h265/h265_nal_sei_pic_timing.h>
#include <kovran/h265/h265_nal_sei_reader.h>
#include <kovran/h265/h265_slice_segment_header.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <map>
#include <optional>
#include <ostream>
#include <set>
#include <string>
#include <vector>

#include "inspect/reading_elements.h"
#include "support/bit_writer.h"
#include "support/rbsp.h"
#include "support/stream_reading.h"

namespace kovran {
namespace {

using bytes = std::vector<unsigned char>;

// ---- Why a slice segment header is read otherwise than by the standard

enum class rule {
    temporal_mvp,      // slice_temporal_mvp_enabled_flag is not read without long-term pictures
    predicted_set,     // the slice's set is predicted from a predicted one, which has no pictures
    no_long_term_sps,  // long-term pictures need num_long_term_ref_pics_sps
    index_width,       // an index out of a power of two has one bit more
    total_curr,        // NumPicTotalCurr has no pictures of predicted sets
};

std::ostream& operator<<(std::ostream& out, rule which) {
    constexpr const char* names[] = {"temporal_mvp", "predicted_set", "no_long_term_sps",
                                     "index_width", "total_curr"};
    return out << names[static_cast<std::size_t>(which)];
}

using rules = std::set<rule>;

// The streams in which another rule applies first to some slice than that of temporal MVP, which
// all others have.
const std::map<std::string, rules> rules_of_streams = {
    // IDR pictures only, or no temporal MVP.
    {"hm_still", {}},
    {"kvazaar_mvtiles", {}},
    {"kvazaar_tiles_slices", {}},
    {"main10_still444", {}},
    {"main422_10intra", {}},
    {"mainstill", {}},
    // No slice is in the reading.
    {"mprps_b3", {}},
    // Slices with a set of their own.
    {"hm_field", {rule::temporal_mvp, rule::predicted_set}},
    {"hm_ra16", {rule::temporal_mvp, rule::predicted_set}},
    {"hm_ra8_cra", {rule::temporal_mvp, rule::predicted_set}},
    {"hm_rext400", {rule::temporal_mvp, rule::predicted_set}},
    {"more_ed_mv_pocreset", {rule::temporal_mvp, rule::predicted_set}},
    {"more_field_tff", {rule::temporal_mvp, rule::predicted_set}},
    {"more_mv2", {rule::temporal_mvp, rule::predicted_set}},
    {"more_xnest_mv", {rule::temporal_mvp, rule::predicted_set}},
    {"more_xsei_a7", {rule::temporal_mvp, rule::predicted_set}},
    {"more_xsei_a8", {rule::temporal_mvp, rule::predicted_set}},
    {"more_xsei_a9", {rule::temporal_mvp, rule::predicted_set}},
    // All slices but those of IDR pictures have one.
    {"htm_3d2d", {rule::predicted_set}},
    {"more_3d_2t", {rule::predicted_set}},
    {"more_3d_2vd", {rule::predicted_set}},
    {"more_3d_2vd_nodlt", {rule::predicted_set}},
    {"more_ed_3d_cpslice", {rule::predicted_set}},
    {"more_mv2_seiA", {rule::predicted_set}},
    {"more_mv2_seiB", {rule::predicted_set}},
    {"more_mv2_seiC", {rule::predicted_set}},
    {"more_mv2_seiD", {rule::predicted_set}},
    {"more_mv3", {rule::predicted_set}},
    {"more_mvp2_split", {rule::predicted_set}},
    {"more_mvp3", {rule::predicted_set}},
    {"more_mvp_nuh", {rule::predicted_set}},
    {"more_scc_act", {rule::predicted_set}},
    // Eight coding tree blocks, and slices that begin within the picture.
    {"more_ed_shext", {rule::temporal_mvp, rule::index_width}},
    {"more_slices_all", {rule::temporal_mvp, rule::index_width}},
    // Long-term pictures; the fourth stream has five in its SPS, and is read as by the standard.
    {"hmx_ltr1", {rule::no_long_term_sps}},
    {"hmx_ltr3_unused", {rule::no_long_term_sps}},
    {"hmx_ltr_msb_part", {rule::no_long_term_sps}},
    {"hmx_ltrsps5", {}},
};

// Streams whose slices, once they follow the rule of temporal MVP, differ by NumPicTotalCurr.
const std::set<std::string> streams_with_other_list_modifications = {"hmx_listmod_b",
                                                                     "hmx_listmod_p4"};

// ---- The reading

struct element {
    std::string name;
    std::int64_t value;
    std::size_t position;  // from the first bit behind the NAL unit header
    std::size_t width;
};
using elements = std::vector<element>;

// Bytes and texts, which only SEI messages have that no record has, count as 0.
elements elements_of(const test::unit_reading& unit) {
    elements all;
    for (const test::expected_element& each : test::elements_of({{"elements", unit.elements}})) {
        all.push_back(
            {each.name, std::strtoll(each.value.c_str(), nullptr, 10), each.bit, each.width});
    }
    return all;
}

std::size_t find(const elements& all, const std::string& name, std::size_t from = 0) {
    const auto found = std::find_if(all.begin() + static_cast<std::ptrdiff_t>(from), all.end(),
                                    [&](const element& each) { return each.name == name; });
    return static_cast<std::size_t>(found - all.begin());
}

std::optional<std::int64_t> value_in(const elements& all, const std::string& name) {
    const std::size_t index = find(all, name);
    return index == all.size() ? std::nullopt : std::optional(all[index].value);
}

// What stands behind the NAL unit header, without emulation prevention bytes.
bytes rbsp_of(const test::stream_reading& stream, const test::unit_reading& unit) {
    bytes rbsp;
    std::size_t zeros = 0;
    for (std::size_t i = unit.offset + 2; i < unit.offset + unit.size; ++i) {
        const unsigned char byte = stream.bytes[i];
        if (zeros >= 2 && byte == 3) {
            zeros = 0;
            continue;
        }
        zeros = byte == 0 ? zeros + 1 : 0;
        rbsp.push_back(byte);
    }
    return rbsp;
}

void copy_bits(const bytes& from, std::size_t first, std::size_t last, test::bit_writer& to) {
    for (std::size_t bit = first; bit < last; ++bit) {
        const unsigned int byte = from[bit / 8];
        to.u<1>(byte >> (7 - bit % 8) & 1U);
    }
}

// ---- A host

struct host {
    h2645_common_base_store<h265_nal_vps> vps_store;
    h2645_common_base_store<h265_nal_sps> sps_store;
    h2645_common_base_store<h265_nal_pps> pps_store;
};

// The short-term sets of an SPS as their elements have them; a predicted one without pictures.
std::vector<h265_st_ref_pic_set> sets_of(const elements& sps) {
    std::vector<h265_st_ref_pic_set> sets;
    const std::size_t begin = find(sps, "num_short_term_ref_pic_sets") + 1;
    const std::size_t end = find(sps, "long_term_ref_pics_present_flag");
    for (std::size_t i = begin; i < end; ++i) {
        const element& each = sps[i];
        const bool value = each.value != 0;
        if (each.name == "inter_ref_pic_set_prediction_flag" || i == begin) {
            sets.emplace_back().valid = true;
        }
        h265_st_ref_pic_set& set = sets.back();
        if (each.name == "inter_ref_pic_set_prediction_flag") {
            set.inter_ref_pic_set_prediction_flag = value;
        } else if (each.name == "num_negative_pics") {
            set.num_negative_pics = static_cast<unsigned int>(each.value);
        } else if (each.name == "num_positive_pics") {
            set.num_positive_pics = static_cast<unsigned int>(each.value);
            set.NumDeltaPocs = set.num_negative_pics + set.num_positive_pics;
        } else if (each.name.rfind("used_by_curr_pic_s0_flag", 0) == 0) {
            set.used_by_curr_pic_s0_flag.push_back(value);
        } else if (each.name.rfind("used_by_curr_pic_s1_flag", 0) == 0) {
            set.used_by_curr_pic_s1_flag.push_back(value);
        }
    }
    return sets;
}

// Whether one set is predicted from another predicted one: of the latter no pictures are kept, so
// that the SPS is not read as by the standard from there on.
bool has_chained_sets(const std::vector<h265_st_ref_pic_set>& sets) {
    return std::adjacent_find(sets.begin(), sets.end(), [](const auto& first, const auto& second) {
               return first.inter_ref_pic_set_prediction_flag &&
                      second.inter_ref_pic_set_prediction_flag;
           }) != sets.end();
}

// An SPS with chained sets is parsed without its sets, which are put into the record afterwards.
void take_sps(host& host, const bytes& rbsp, const elements& reading) {
    const std::vector<h265_st_ref_pic_set> sets = sets_of(reading);
    const bool chained = has_chained_sets(sets);
    test::bit_writer bits;
    if (chained) {
        copy_bits(rbsp, 0, reading[find(reading, "num_short_term_ref_pic_sets")].position, bits);
        bits.ue(0);
        copy_bits(rbsp, reading[find(reading, "long_term_ref_pics_present_flag")].position,
                  reading[find(reading, "rbsp_stop_one_bit")].position, bits);
        bits.trailing_bits();
    }
    test::rbsp input{chained ? bits.bytes() : rbsp};
    h265_nal_sps sps;
    ASSERT_TRUE(sps.parse(input.reader, host.vps_store));
    if (chained) {
        sps.num_short_term_ref_pic_sets = static_cast<unsigned int>(sets.size());
        sps.st_ref_pic_set = sets;
    }
    host.sps_store[sps.sps_seq_parameter_set_id] = sps;
    if (host.sps_store.active_id == host.sps_store.no_id) {
        host.sps_store.active_id = sps.sps_seq_parameter_set_id;
    }
}

// As a host does; what the other reader did not read is not taken.
void take_parameter_set(host& host, const test::unit_reading& unit, const bytes& rbsp) {
    if (unit.elements.empty()) {
        return;
    }
    test::rbsp input{rbsp};
    switch (unit.nal_unit_type) {
        case VPS_NUT: {
            h265_nal_vps vps;
            vps.cprms_present_flag = {true};  // as the standard infers it
            ASSERT_TRUE(vps.parse(input.reader));
            host.vps_store[vps.vps_video_parameter_set_id] = vps;
            break;
        }
        case SPS_NUT:
            take_sps(host, rbsp, elements_of(unit));
            break;
        case PPS_NUT: {
            h265_nal_pps pps;
            ASSERT_TRUE(pps.parse(input.reader, host.sps_store));
            host.pps_store[pps.pps_pic_parameter_set_id] = pps;
            break;
        }
        default:
            break;
    }
}

// ---- Fields by the names of their elements

// "name[3]" as "name" and 3.
std::string base_name(const std::string& name) {
    return name.substr(0, name.find('['));
}

std::size_t index_of(const std::string& name) {
    const std::size_t bracket = name.find('[');
    return bracket == std::string::npos ? 0 : std::stoul(name.substr(bracket + 1));
}

template <class Array>
std::optional<std::int64_t> entry(const Array& array, std::size_t index) {
    return index < array.size() ? std::optional<std::int64_t>(array[index]) : std::nullopt;
}

// The value of a field, none for an entry that is not there.
using getter = std::optional<std::int64_t> (*)(const h265_slice_segment_header& slice,
                                               std::size_t index);

#define SLICE_FIELD(name)                                                          \
    {                                                                              \
#name, [](const h265_slice_segment_header& slice,                          \
                  std::size_t) { return std::optional<std::int64_t>(slice.name); } \
    }
#define SET_FIELD(name)                                                                           \
    {                                                                                             \
#name, [](const h265_slice_segment_header& slice,                                         \
                  std::size_t) { return std::optional<std::int64_t>(slice.st_ref_pic_set.name); } \
    }
#define SLICE_ARRAY(name)                                                 \
    {                                                                     \
#name, [](const h265_slice_segment_header& slice,                 \
                  std::size_t index) { return entry(slice.name, index); } \
    }
#define SET_ARRAY(name)                                                                  \
    {                                                                                    \
#name, [](const h265_slice_segment_header& slice,                                \
                  std::size_t index) { return entry(slice.st_ref_pic_set.name, index); } \
    }
#define LIST_FIELD(name)                                                                  \
    {                                                                                     \
#name, [](const h265_slice_segment_header& slice, std::size_t) {                        \
         return std::optional<std::int64_t>(slice.ref_pic_lists_modification.name);          \
     } \
    }
#define LIST_ARRAY(name)                                                                          \
    {                                                                                             \
#name,                                                                                    \
            [](const h265_slice_segment_header& slice,                                            \
               std::size_t index) { return entry(slice.ref_pic_lists_modification.name, index); } \
    }

// The elements of a header up to ref_pic_lists_modification().
const std::map<std::string, getter> fields = {
    SLICE_FIELD(first_slice_segment_in_pic_flag),
    SLICE_FIELD(no_output_of_prior_pics_flag),
    SLICE_FIELD(slice_pic_parameter_set_id),
    SLICE_FIELD(dependent_slice_segment_flag),
    SLICE_FIELD(slice_segment_address),
    SLICE_FIELD(slice_type),
    SLICE_FIELD(pic_output_flag),
    SLICE_FIELD(colour_plane_id),
    SLICE_FIELD(slice_pic_order_cnt_lsb),
    SLICE_FIELD(short_term_ref_pic_set_sps_flag),
    SET_FIELD(inter_ref_pic_set_prediction_flag),
    SET_FIELD(delta_idx_minus1),
    SET_FIELD(delta_rps_sign),
    SET_FIELD(abs_delta_rps_minus1),
    SET_ARRAY(used_by_curr_pic_flag),
    SET_ARRAY(use_delta_flag),
    SET_FIELD(num_negative_pics),
    SET_FIELD(num_positive_pics),
    SET_ARRAY(delta_poc_s0_minus1),
    SET_ARRAY(used_by_curr_pic_s0_flag),
    SET_ARRAY(delta_poc_s1_minus1),
    SET_ARRAY(used_by_curr_pic_s1_flag),
    SLICE_FIELD(short_term_ref_pic_set_idx),
    SLICE_FIELD(num_long_term_sps),
    SLICE_FIELD(num_long_term_pics),
    SLICE_ARRAY(lt_idx_sps),
    SLICE_ARRAY(poc_lsb_lt),
    SLICE_ARRAY(used_by_curr_pic_lt_flag),
    SLICE_ARRAY(delta_poc_msb_present_flag),
    SLICE_ARRAY(delta_poc_msb_cycle_lt),
    SLICE_FIELD(slice_temporal_mvp_enabled_flag),
    SLICE_FIELD(slice_sao_luma_flag),
    SLICE_FIELD(slice_sao_chroma_flag),
    SLICE_FIELD(num_ref_idx_active_override_flag),
    SLICE_FIELD(num_ref_idx_l0_active_minus1),
    SLICE_FIELD(num_ref_idx_l1_active_minus1),
    LIST_FIELD(ref_pic_list_modification_flag_l0),
    LIST_ARRAY(list_entry_l0),
    LIST_FIELD(ref_pic_list_modification_flag_l1),
    LIST_ARRAY(list_entry_l1),
};

#undef SLICE_FIELD
#undef SET_FIELD
#undef SLICE_ARRAY
#undef SET_ARRAY
#undef LIST_FIELD
#undef LIST_ARRAY

// Bits that are read and kept nowhere.
bool is_reserved(const element& each) {
    return base_name(each.name) == "slice_reserved_flag";
}

void expect_elements(const h265_slice_segment_header& slice, const elements& expected) {
    for (const element& each : expected) {
        if (is_reserved(each)) {
            continue;
        }
        EXPECT_EQ(fields.at(base_name(each.name))(slice, index_of(each.name)), each.value)
            << each.name;
    }
}

// ---- The rules applied to a reading

std::size_t bit_length(std::uint64_t count) {
    std::size_t length = 0;
    while (count >> length != 0) {
        ++length;
    }
    return length;
}

std::uint64_t picture_size_in_ctbs(const h265_nal_sps& sps) {
    const std::uint64_t size = std::uint64_t{1} << (sps.log2_min_luma_coding_block_size_minus3 + 3 +
                                                    sps.log2_diff_max_min_luma_coding_block_size);
    return (sps.pic_width_in_luma_samples + size - 1) / size *
           ((sps.pic_height_in_luma_samples + size - 1) / size);
}

unsigned int pictures_in_use(const h265_st_ref_pic_set& set) {
    return static_cast<unsigned int>(
        std::count(set.used_by_curr_pic_s0_flag.begin(), set.used_by_curr_pic_s0_flag.end(), true) +
        std::count(set.used_by_curr_pic_s1_flag.begin(), set.used_by_curr_pic_s1_flag.end(), true));
}

// A header as the rules want it, made of one that follows the standard.
struct header_by_rules {
    elements kept;
    elements kept_before_first;  // those before the first rule that applies
    test::bit_writer bits;
    std::vector<rule> applied;
    unsigned int CurrRpsIdx = 0;
    unsigned int NumPicTotalCurr = 0;
};

class rule_follower {
public:
    rule_follower(const elements& reading, const bytes& rbsp, const h265_nal_sps& sps)
        : reading_(reading), rbsp_(rbsp), sps_(sps) {}

    header_by_rules follow() {
        derive();
        for (const element& each : reading_) {
            if (!is_reserved(each) && fields.find(base_name(each.name)) == fields.end()) {
                break;  // what comes behind the list modification, or behind the end of an I slice
            }
            follow(each);
        }
        return header_;
    }

private:
    void derive() {
        header_.CurrRpsIdx = sps_.num_short_term_ref_pic_sets;
        if (value_in(reading_, "short_term_ref_pic_set_sps_flag") == 1) {
            header_.CurrRpsIdx = static_cast<unsigned int>(
                value_in(reading_, "short_term_ref_pic_set_idx").value_or(0));
        }
        if (value_in(reading_, "slice_type").value_or(2) > 1) {
            return;
        }
        if (header_.CurrRpsIdx < sps_.num_short_term_ref_pic_sets) {
            header_.NumPicTotalCurr = pictures_in_use(sps_.st_ref_pic_set[header_.CurrRpsIdx]);
        } else {
            for (const element& each : reading_) {
                const std::string name = base_name(each.name);
                header_.NumPicTotalCurr +=
                    (name == "used_by_curr_pic_s0_flag" || name == "used_by_curr_pic_s1_flag") &&
                            each.value == 1
                        ? 1U
                        : 0U;
            }
        }
        const auto long_term =
            static_cast<std::size_t>(value_in(reading_, "num_long_term_sps").value_or(0) +
                                     value_in(reading_, "num_long_term_pics").value_or(0));
        for (std::size_t i = 0; i < long_term; ++i) {
            header_.NumPicTotalCurr += entry(sps_.used_by_curr_pic_lt_sps_flag, i) == 1 ? 1U : 0U;
        }
    }

    void follow(const element& each) {
        const std::string name = base_name(each.name);
        if (name == "slice_temporal_mvp_enabled_flag" && !sps_.long_term_ref_pics_present_flag) {
            apply(rule::temporal_mvp);
        } else if ((name == "used_by_curr_pic_flag" || name == "use_delta_flag") &&
                   index_of(each.name) > 0 && is_predicted_from_predicted_set()) {
            apply(rule::predicted_set);
        } else if (name == "num_long_term_pics" && sps_.num_long_term_ref_pics_sps == 0) {
            keep(each);
            apply(rule::no_long_term_sps);
        } else if (name == "slice_segment_address") {
            keep_index(each, bit_length(picture_size_in_ctbs(sps_)), rule::index_width);
        } else if (name == "short_term_ref_pic_set_idx") {
            keep_index(each, bit_length(sps_.num_short_term_ref_pic_sets), rule::index_width);
        } else if (name == "lt_idx_sps") {
            keep_index(each, bit_length(sps_.num_long_term_ref_pics_sps), rule::index_width);
        } else if (name.rfind("ref_pic_list_modification_flag", 0) == 0 ||
                   name.rfind("list_entry", 0) == 0) {
            if (header_.NumPicTotalCurr < 2) {
                apply(rule::total_curr);
            } else if (name.rfind("list_entry", 0) == 0) {
                keep_index(each, bit_length(header_.NumPicTotalCurr), rule::index_width);
            } else {
                keep(each);
            }
        } else {
            keep(each);
        }
    }

    bool is_predicted_from_predicted_set() const {
        const std::int64_t delta = value_in(reading_, "delta_idx_minus1").value_or(0) + 1;
        const auto idx = static_cast<std::size_t>(sps_.num_short_term_ref_pic_sets - delta);
        return sps_.st_ref_pic_set.at(idx).inter_ref_pic_set_prediction_flag;
    }

    void apply(rule which) { header_.applied.push_back(which); }

    void keep(const element& each) {
        copy_bits(rbsp_, each.position, each.position + each.width, header_.bits);
        note(each);
    }

    void keep_index(const element& each, std::size_t width, rule which) {
        if (width != each.width) {
            apply(which);
        }
        header_.bits.u(static_cast<unsigned int>(width), static_cast<std::uint64_t>(each.value));
        note(each);
    }

    void note(const element& each) {
        header_.kept.push_back(each);
        if (header_.applied.empty()) {
            header_.kept_before_first.push_back(each);
        }
    }

    const elements& reading_;
    const bytes& rbsp_;
    const h265_nal_sps& sps_;
    header_by_rules header_;
};

// ---- Walks

bool is_slice(const test::unit_reading& unit) {
    return unit.nal_unit_type < 32 && !unit.elements.empty();
}

bool is_sei(const test::unit_reading& unit) {
    return unit.nal_unit_type == PREFIX_SEI_NUT || unit.nal_unit_type == SUFFIX_SEI_NUT;
}

// Calls visit(host, unit, rbsp) for each unit of the base layer, the stores as they are then.
template <class Visit>
void walk(const test::stream_reading& stream, Visit visit) {
    host host;
    for (const test::unit_reading& unit : stream.units) {
        if (unit.nuh_layer_id != 0) {
            continue;
        }
        SCOPED_TRACE("unit at " + std::to_string(unit.offset));
        const bytes rbsp = rbsp_of(stream, unit);
        take_parameter_set(host, unit, rbsp);
        visit(host, unit, rbsp);
        if (testing::Test::HasFatalFailure()) {
            return;
        }
    }
}

// NOLINTNEXTLINE(readability-identifier-naming): the name of a suite
class SliceStreams : public testing::TestWithParam<std::string> {
protected:
    const test::stream_reading stream = test::load_stream_reading(GetParam());
};

// Every header up to the first element that a rule applies to; with the rules that do.
TEST_P(SliceStreams, ReadSliceHeadersAsTheReadingUpToTheFirstRuleOfTheirOwn) {
    rules first_rules;
    std::size_t slices = 0;
    walk(stream, [&](host& host, const test::unit_reading& unit, const bytes& rbsp) {
        if (!is_slice(unit)) {
            return;
        }
        ++slices;
        const elements reading = elements_of(unit);
        test::rbsp input{rbsp};
        h265_slice_segment_header slice;
        const bool result =
            slice.parse(input.reader, host.pps_store, host.sps_store, host.vps_store,
                        static_cast<h265_nal_unit_type>(unit.nal_unit_type));
        const h265_nal_pps& pps = host.pps_store.at(slice.slice_pic_parameter_set_id);
        const h265_nal_sps& sps = host.sps_store.at(pps.pps_seq_parameter_set_id);

        const header_by_rules expected = rule_follower(reading, rbsp, sps).follow();
        expect_elements(slice, expected.kept_before_first);
        if (expected.applied.empty()) {
            EXPECT_TRUE(result);
            EXPECT_EQ(input.reader.bit_position(), expected.bits.size());
        } else {
            first_rules.insert(expected.applied.front());
            EXPECT_EQ(result, expected.applied.front() != rule::no_long_term_sps);
        }
    });
    const auto row = rules_of_streams.find(GetParam());
    EXPECT_EQ(first_rules, row == rules_of_streams.end() ? rules{rule::temporal_mvp} : row->second);
    EXPECT_EQ(slices == 0, GetParam() == "mprps_b3");
}

// The same headers rewritten to follow the rules, which then have every element of the reading
// that the rules do not take away.
TEST_P(SliceStreams, ReadSliceHeadersAsTheReadingOnceTheyFollowTheRules) {
    bool other_list_modifications = false;
    walk(stream, [&](host& host, const test::unit_reading& unit, const bytes& rbsp) {
        if (!is_slice(unit)) {
            return;
        }
        const elements reading = elements_of(unit);
        h265_nal_pps& pps = host.pps_store.at(
            static_cast<unsigned int>(reading[find(reading, "slice_pic_parameter_set_id")].value));
        h265_nal_sps& sps = host.sps_store.at(pps.pps_seq_parameter_set_id);
        const h265_nal_sps sps_before = sps;

        header_by_rules expected = rule_follower(reading, rbsp, sps).follow();
        for (const rule which : expected.applied) {
            other_list_modifications = other_list_modifications || which == rule::total_curr;
        }
        if (sps.long_term_ref_pics_present_flag && sps.num_long_term_ref_pics_sps == 0 &&
            find(reading, "num_long_term_pics") != reading.size()) {
            // With a long-term picture in the SPS there is num_long_term_sps, here 0.
            sps.num_long_term_ref_pics_sps = 1;
            test::bit_writer bits;
            for (const element& each : expected.kept) {
                if (each.name == "num_long_term_pics") {
                    bits.ue(0);
                }
                copy_bits(rbsp, each.position, each.position + each.width, bits);
            }
            expected.bits = bits;
        }

        test::bit_writer followed = expected.bits;
        followed.u<32>(0xFFFFFFFF);
        test::rbsp input{followed.bytes()};
        h265_slice_segment_header slice;
        EXPECT_TRUE(slice.parse(input.reader, host.pps_store, host.sps_store, host.vps_store,
                                static_cast<h265_nal_unit_type>(unit.nal_unit_type)));
        expect_elements(slice, expected.kept);
        EXPECT_EQ(input.reader.bit_position(), expected.bits.size());
        EXPECT_EQ(slice.CurrRpsIdx, expected.CurrRpsIdx);
        EXPECT_EQ(slice.NumPicTotalCurr, expected.NumPicTotalCurr);
        sps = sps_before;
    });
    EXPECT_EQ(other_list_modifications,
              streams_with_other_list_modifications.count(GetParam()) == 1);
}

// ---- SEI

// One message. The readers give up in some of them, and leave out the bytes FF before the last ones
// of type and size.
struct message_reading {
    unsigned int payload_type = 0;
    unsigned int payload_size = 0;
    elements payload;
    bool whole = false;
};

std::vector<message_reading> messages_of(const elements& reading) {
    std::vector<message_reading> messages;
    std::size_t end = 0;  // of the message before, and then of its type
    const auto byte_run = [&end](const element& last) {
        return static_cast<unsigned int>(255 * (last.position - end) / 8) +
               static_cast<unsigned int>(last.value);
    };
    for (const element& each : reading) {
        if (each.name == "rbsp_stop_one_bit") {
            break;
        }
        if (each.name == "last_payload_type_byte") {
            messages.emplace_back().payload_type = byte_run(each);
        } else if (each.name == "last_payload_size_byte") {
            messages.back().payload_size = byte_run(each);
        } else {
            messages.back().payload.push_back(each);
        }
        end = each.position + each.width;
    }
    for (message_reading& message : messages) {
        message.whole = message.payload.empty() || message.payload[0].name != "sei_payload(0)";
    }
    return messages;
}

// That a field of a record that was fresh, or an entry of an array, has the value of the element of
// its name, and is zero where there is no such element. Of a message that the other reader did not
// read to its end, only the elements that it has are compared.
class message_fields {
public:
    message_fields(const elements& payload, bool whole) : payload_(payload), whole_(whole) {}

    template <class Value>
    void expect(const char* name, const Value& value) {
        names_.insert(name);
        const auto expected = value_in(payload_, name);
        if (expected || whole_) {
            EXPECT_EQ(static_cast<std::int64_t>(value), expected.value_or(0)) << name;
        }
    }

    void expect(const char* name, const std::vector<unsigned int>& values) {
        names_.insert(name);
        std::vector<bool> coded(values.size());
        for (const element& each : payload_) {
            if (base_name(each.name) == name) {
                const std::size_t index = index_of(each.name);
                ASSERT_LT(index, values.size()) << each.name;
                EXPECT_EQ(values[index], each.value) << each.name;
                coded[index] = true;
            }
        }
        for (std::size_t i = 0; i < values.size() && whole_; ++i) {
            EXPECT_TRUE(coded[i] || values[i] == 0) << name << "[" << i << "]";
        }
    }

    // That no element was left out but those that fill up the payload, or extend it.
    void expect_all_named() const {
        for (const element& each : payload_) {
            if (!test::is_payload_padding(each.name)) {
                EXPECT_EQ(names_.count(base_name(each.name)), 1U) << each.name;
            }
        }
    }

private:
    const elements& payload_;
    bool whole_;
    std::set<std::string> names_;
};

#define EXPECT_ELEMENT(fields, record, name) (fields).expect(#name, (record).name)

void expect_buffering_period(h2645_common_bitreader& reader, host& host,
                             const message_reading& expected) {
    const elements& payload = expected.payload;
    h265_nal_sei_buffering_period period;
    if (!value_in(payload, "bp_seq_parameter_set_id")) {
        // Nobody can read it: its SPS has no HRD parameters.
        EXPECT_FALSE(period.parse(reader, host.sps_store));
        EXPECT_EQ(payload.at(0).name, "sei_payload(0)");
        return;
    }
    EXPECT_TRUE(period.parse(reader, host.sps_store));
    EXPECT_TRUE(period.valid);
    EXPECT_FALSE(period.use_alt_cpb_params_flag_present);
    host.sps_store.active_id = period.bp_seq_parameter_set_id;
    message_fields read(payload, expected.whole);
    EXPECT_ELEMENT(read, period, bp_seq_parameter_set_id);
    EXPECT_ELEMENT(read, period, irap_cpb_params_present_flag);
    EXPECT_ELEMENT(read, period, cpb_delay_offset);
    EXPECT_ELEMENT(read, period, dpb_delay_offset);
    EXPECT_ELEMENT(read, period, concatenation_flag);
    EXPECT_ELEMENT(read, period, au_cpb_removal_delay_delta_minus1);
    EXPECT_ELEMENT(read, period, nal_initial_cpb_removal_delay);
    EXPECT_ELEMENT(read, period, nal_initial_cpb_removal_offset);
    EXPECT_ELEMENT(read, period, nal_initial_alt_cpb_removal_delay);
    EXPECT_ELEMENT(read, period, nal_initial_alt_cpb_removal_offset);
    EXPECT_ELEMENT(read, period, vcl_initial_cpb_removal_delay);
    EXPECT_ELEMENT(read, period, vcl_initial_cpb_removal_offset);
    EXPECT_ELEMENT(read, period, vcl_initial_alt_cpb_removal_delay);
    EXPECT_ELEMENT(read, period, vcl_initial_alt_cpb_removal_offset);
    read.expect_all_named();
    const auto present = [&](const char* name) { return value_in(payload, name).has_value(); };
    EXPECT_EQ(period.NalHrdBpPresentFlag, present("nal_initial_cpb_removal_delay[0]"));
    EXPECT_EQ(period.VclHrdBpPresentFlag, present("vcl_initial_cpb_removal_delay[0]"));
}

void expect_pic_timing(h2645_common_bitreader& reader, const host& host,
                       const message_reading& expected) {
    const elements& payload = expected.payload;
    h265_nal_sei_pic_timing timing;
    EXPECT_TRUE(timing.parse(reader, host.sps_store));
    EXPECT_TRUE(timing.valid);
    message_fields read(payload, expected.whole);
    EXPECT_ELEMENT(read, timing, pic_struct);
    EXPECT_ELEMENT(read, timing, source_scan_type);
    EXPECT_ELEMENT(read, timing, duplicate_flag);
    EXPECT_ELEMENT(read, timing, au_cpb_removal_delay_minus1);
    EXPECT_ELEMENT(read, timing, pic_dpb_output_delay);
    EXPECT_ELEMENT(read, timing, pic_dpb_output_du_delay);
    EXPECT_ELEMENT(read, timing, num_decoding_units_minus1);
    EXPECT_ELEMENT(read, timing, du_common_cpb_removal_delay_flag);
    EXPECT_ELEMENT(read, timing, du_common_cpb_removal_delay_increment_minus1);
    EXPECT_ELEMENT(read, timing, num_nalus_in_du_minus1);
    EXPECT_ELEMENT(read, timing, du_cpb_removal_delay_increment_minus1);
    read.expect_all_named();
    if (!expected.whole) {
        return;
    }
    const auto present = [&](const char* name) { return value_in(payload, name).has_value(); };
    EXPECT_EQ(timing.cpb_dpb_delays_present, present("au_cpb_removal_delay_minus1"));
    EXPECT_EQ(timing.du_info_present, present("num_decoding_units_minus1"));
}

void expect_active_parameter_sets(h2645_common_bitreader& reader, host& host,
                                  const message_reading& expected) {
    const elements& payload = expected.payload;
    h265_nal_sei_active_parameter_sets sets;
    EXPECT_TRUE(sets.parse(reader, host.vps_store));
    EXPECT_TRUE(sets.valid);
    message_fields read(payload, expected.whole);
    EXPECT_ELEMENT(read, sets, active_video_parameter_set_id);
    EXPECT_ELEMENT(read, sets, self_contained_cvs_flag);
    EXPECT_ELEMENT(read, sets, no_parameter_set_update_flag);
    EXPECT_ELEMENT(read, sets, num_sps_ids_minus1);
    EXPECT_ELEMENT(read, sets, active_seq_parameter_set_id);
    EXPECT_ELEMENT(read, sets, layer_sps_idx);
    read.expect_all_named();
    ASSERT_FALSE(sets.active_seq_parameter_set_id.empty());
    host.sps_store.active_id = sets.active_seq_parameter_set_id[0];
}

// Where the payload's own elements end, the bits that fill it up begin.
std::size_t end_of(const elements& payload) {
    for (const element& each : payload) {
        if (test::is_payload_padding(each.name)) {
            return each.position;
        }
    }
    return payload.back().position + payload.back().width;
}

TEST_P(SliceStreams, ReadSeiMessagesAsTheReading) {
    walk(stream, [&](host& host, const test::unit_reading& unit, const bytes& rbsp) {
        if (is_slice(unit)) {
            const auto id = value_in(elements_of(unit), "slice_pic_parameter_set_id");
            host.sps_store.active_id =
                host.pps_store.at(static_cast<unsigned int>(id.value())).pps_seq_parameter_set_id;
        }
        if (!is_sei(unit) || unit.elements.empty()) {
            return;
        }
        const test::exact_bytes buffer(rbsp);
        h265_nal_sei_reader messages(buffer.begin(), buffer.end(),
                                     static_cast<h265_nal_unit_type>(unit.nal_unit_type));
        for (const message_reading& expected : messages_of(elements_of(unit))) {
            ASSERT_TRUE(messages.next_message());
            EXPECT_EQ(messages.payload_type, expected.payload_type);
            EXPECT_EQ(messages.payload_size, expected.payload_size);
            EXPECT_FALSE(messages.truncated);
            if (expected.payload.empty()) {
                EXPECT_EQ(expected.payload_size, 0U);
                continue;
            }
            const auto payload_bit =
                8 * static_cast<std::size_t>(messages.payload_begin - buffer.begin());
            EXPECT_EQ(payload_bit, expected.payload[0].position);

            h2645_common_bitreader reader(messages.payload_begin, messages.payload_end);
            if (unit.nal_unit_type != PREFIX_SEI_NUT) {
                continue;
            }
            switch (expected.payload_type) {
                case h265_nal_sei_payload_type_prefix_buffering_period:
                    expect_buffering_period(reader, host, expected);
                    break;
                case h265_nal_sei_payload_type_prefix_pic_timing:
                    expect_pic_timing(reader, host, expected);
                    break;
                case h265_nal_sei_payload_type_prefix_active_parameter_sets:
                    expect_active_parameter_sets(reader, host, expected);
                    break;
                default:
                    continue;
            }
            if (expected.whole) {
                EXPECT_EQ(payload_bit + reader.bit_position(), end_of(expected.payload));
            }
        }
        EXPECT_FALSE(messages.next_message());
        EXPECT_EQ(messages.cursor, messages.end);
    });
}

INSTANTIATE_TEST_SUITE_P(AllStreams, SliceStreams, testing::ValuesIn(test::stream_names()),
                         [](const testing::TestParamInfo<std::string>& stream) {
                             return stream.param;
                         });

}  // namespace
}  // namespace kovran
