#include <kovran/h265/h265_nal_pps.h>
#include <kovran/h265/h265_nal_sps.h>
#include <kovran/h265/h265_nal_vps.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <vector>

#include "support/allocation_failure.h"
#include "support/bit_writer.h"
#include "support/extensions.h"
#include "support/parameter_sets.h"
#include "support/rbsp.h"
#include "support/reuse_exhaustion.h"
#include "support/same_fields.h"

namespace kovran {
namespace {

using bytes = std::vector<unsigned char>;

// The first `size` bits; zeros fill the last byte.
bytes first_bits(const bytes& whole, std::size_t size) {
    bytes first(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>((size + 7) / 8));
    if (size % 8 != 0) {
        first.back() = static_cast<unsigned char>(first.back() & 0xFF00U >> size % 8);
    }
    return first;
}

// Parses every beginning of an RBSP into a fresh record. What lies behind an end reads as zeros, so
// that nothing stands for the stop bit until the end is behind the bit at `first_stop_bit`: the
// stop bit, or in an extension the first 1 bit, as the last 1 bit of an RBSP is taken for the stop
// bit.
template <class Record, class Parse>
void expect_success_from(std::size_t first_stop_bit, const test::bit_writer& rbsp, Parse parse) {
    for (std::size_t size = 0; size <= rbsp.size(); ++size) {
        test::rbsp input{first_bits(rbsp.bytes(), size)};
        Record record;
        const bool result = parse(record, input.reader);
        EXPECT_EQ(result, size > first_stop_bit) << size << " bits of " << rbsp.size();
        EXPECT_EQ(record.valid, result) << size << " bits of " << rbsp.size();
    }
}

template <class Record, class Syntax, class Parse>
void expect_truncation_is_noticed(const Syntax& full, Parse parse) {
    Syntax before_extension = full;
    before_extension.extension = test::bit_writer();
    const std::size_t extension = before_extension.payload().size();
    expect_success_from<Record>(extension + test::extension_first_one, full.rbsp(), parse);

    Syntax without_extension = full;
    without_extension.extension = test::bit_writer().u<1>(0);
    expect_success_from<Record>(without_extension.payload().size(), without_extension.rbsp(),
                                parse);
}

bool parse_vps(h265_nal_vps& vps, h2645_common_bitreader& reader) {
    return vps.parse(reader);
}

// The stores hold the identifiers 0, which zeros may be read as, and those of the full sets.
bool parse_sps(h265_nal_sps& sps, h2645_common_bitreader& reader) {
    static h2645_common_base_store<h265_nal_vps> store = [] {
        auto both = test::vps_store_with(13);
        both[0].valid = true;
        return both;
    }();
    return sps.parse(reader, store);
}

bool parse_pps(h265_nal_pps& pps, h2645_common_bitreader& reader) {
    static h2645_common_base_store<h265_nal_sps> store = [] {
        auto both = test::sps_store_with(15);
        both[0].valid = true;
        return both;
    }();
    return pps.parse(reader, store);
}

TEST(ParameterSetTruncation, IsNoticedByTheVpsAtEveryBit) {
    expect_truncation_is_noticed<h265_nal_vps>(test::full_vps().syntax, parse_vps);
}

TEST(ParameterSetTruncation, IsNoticedByTheSpsAtEveryBit) {
    expect_truncation_is_noticed<h265_nal_sps>(test::full_sps().syntax, parse_sps);
}

TEST(ParameterSetTruncation, IsNoticedByThePpsAtEveryBit) {
    expect_truncation_is_noticed<h265_nal_pps>(test::full_pps().syntax, parse_pps);
}

// What `valid` shall be after a failure, by what it was before.
template <class Record>
bool becomes_false(const Record& /*failed*/, bool /*valid_before*/) {
    return false;
}

template <class Record>
bool stays(const Record& /*failed*/, bool valid_before) {
    return valid_before;
}

// Fails the first allocation of a parse, in another parse the second, and so on until there are no
// more. `prepared` is a fresh record but for what its caller has to set.
template <class Record, class Parse, class ValidAfter>
void expect_failure_at_every_allocation(const Record& prepared, const bytes& input, Parse parse,
                                        ValidAfter valid_after) {
    Record undisturbed = prepared;
    test::rbsp undisturbed_input{input};
    ASSERT_TRUE(parse(undisturbed, undisturbed_input.reader));

    for (const bool valid_before : {false, true}) {
        std::size_t failures = 0;
        for (bool exhausted = true; exhausted; failures += exhausted ? 1 : 0) {
            const test::allocation_count memory;
            {
                Record record = prepared;
                record.valid = valid_before;
                test::rbsp first{input};
                bool result = false;
                {
                    const test::allocation_failure failure(failures + 1);
                    result = parse(record, first.reader);
                    exhausted = failure.happened();
                }
                EXPECT_EQ(result, !exhausted) << "allocation " << failures + 1;
                if (exhausted) {
                    EXPECT_EQ(record.valid, valid_after(record, valid_before))
                        << "allocation " << failures + 1;
                    test::rbsp second{input};
                    EXPECT_TRUE(parse(record, second.reader));
                }
                EXPECT_TRUE(test::same_fields(record, undisturbed))
                    << "allocation " << failures + 1;
            }
            EXPECT_TRUE(memory.all_freed()) << "allocation " << failures + 1;
        }
        EXPECT_GT(failures, 0U);
    }
}

// A second parse into a record that has the storage, and then a third.
template <class Record, class Parse>
void expect_no_allocation_when_parsed_again(const Record& prepared, const bytes& input,
                                            Parse parse) {
    Record record = prepared;
    test::rbsp first{input};
    ASSERT_TRUE(parse(record, first.reader));
    const Record after_first = record;
    for (int again = 0; again < 2; ++again) {
        test::rbsp next{input};
        const test::allocation_count memory;
        const bool result = parse(record, next.reader);
        EXPECT_EQ(memory.allocations(), 0U);
        EXPECT_TRUE(result);
        EXPECT_TRUE(test::same_fields(record, after_first));
    }
}

template <class Record, class Parse, class ValidAfter>
void expect_sound_use_of_memory(const Record& prepared, const bytes& input, Parse parse,
                                ValidAfter valid_after) {
    expect_failure_at_every_allocation(prepared, input, parse, valid_after);
    expect_no_allocation_when_parsed_again(prepared, input, parse);
}

TEST(ParameterSetExhaustion, LeavesValidOfALayer) {
    h265_profile_tier_level::layer_t layer;
    layer.profile_present_flag = true;
    layer.level_present_flag = true;
    const auto parse = [](auto& record, h2645_common_bitreader& reader) {
        return record.parse(reader);
    };
    expect_sound_use_of_memory(layer, test::minimal_profile_tier_level().bytes(), parse,
                               stays<h265_profile_tier_level::layer_t>);
}

TEST(ParameterSetExhaustion, ClearsValidOfAProfileTierLevelByItsLayersOnly) {
    const auto parse = [](h265_profile_tier_level& ptl, h2645_common_bitreader& reader) {
        return ptl.parse(true, test::sample_max_sub_layers_minus1, reader);
    };
    const auto valid_after = [](const h265_profile_tier_level& failed, bool valid_before) {
        const bool within_a_layer = !failed.general.valid || !failed.sub_layers.empty();
        return !within_a_layer && valid_before;
    };
    expect_sound_use_of_memory(h265_profile_tier_level(),
                               test::full_profile_tier_level().syntax.bytes(), parse, valid_after);
}

TEST(ParameterSetExhaustion, ClearsValidOfSubLayerHrdParameters) {
    const auto parse = [](h265_nal_sub_layer_hrd_parameters& hrd, h2645_common_bitreader& reader) {
        return hrd.parse(0, 4, h265_hrd_parameters(), reader);
    };
    expect_sound_use_of_memory(h265_nal_sub_layer_hrd_parameters(), bytes(20, 0xFF), parse,
                               becomes_false<h265_nal_sub_layer_hrd_parameters>);
}

TEST(ParameterSetExhaustion, ClearsValidOfHrdParameters) {
    const auto parse = [](h265_hrd_parameters& hrd, h2645_common_bitreader& reader) {
        return hrd.parse(true, test::sample_max_sub_layers_minus1, reader);
    };
    expect_sound_use_of_memory(h265_hrd_parameters(), test::full_hrd_parameters().syntax.bytes(),
                               parse, becomes_false<h265_hrd_parameters>);
}

TEST(ParameterSetExhaustion, ClearsValidOfScalingListData) {
    const auto parse = [](h265_scaling_list_data& lists, h2645_common_bitreader& reader) {
        return lists.parse(reader);
    };
    expect_sound_use_of_memory(h265_scaling_list_data(),
                               test::full_scaling_list_data().syntax.bytes(), parse,
                               becomes_false<h265_scaling_list_data>);
}

TEST(ParameterSetExhaustion, ClearsValidOfAShortTermSet) {
    const auto parse_first = [](h265_st_ref_pic_set& set, h2645_common_bitreader& reader) {
        static const h265_nal_sps sps;
        return set.parse(reader, sps, 0, {});
    };
    expect_sound_use_of_memory(h265_st_ref_pic_set(),
                               test::explicit_st_ref_pic_set().syntax.bytes(), parse_first,
                               becomes_false<h265_st_ref_pic_set>);

    const std::vector<h265_st_ref_pic_set> sets = {test::explicit_st_ref_pic_set().record};
    const auto parse_second = [&](h265_st_ref_pic_set& set, h2645_common_bitreader& reader) {
        static const h265_nal_sps sps;
        return set.parse(reader, sps, 1, sets);
    };
    expect_sound_use_of_memory(h265_st_ref_pic_set(),
                               test::predicted_st_ref_pic_set().syntax.bytes(), parse_second,
                               becomes_false<h265_st_ref_pic_set>);
}

TEST(ParameterSetExhaustion, ClearsValidOfAVui) {
    const auto parse = [](h265_vui_parameters& vui, h2645_common_bitreader& reader) {
        static h265_nal_sps sps;
        sps.sps_max_sub_layers_minus1 = test::sample_max_sub_layers_minus1;
        return vui.parse(reader, sps);
    };
    expect_sound_use_of_memory(h265_vui_parameters(), test::full_vui_parameters().syntax.bytes(),
                               parse, becomes_false<h265_vui_parameters>);
}

TEST(ParameterSetExhaustion, ClearsValidOfAVpsInItsProfileTierLevelOnly) {
    const auto valid_after = [](const h265_nal_vps& failed, bool valid_before) {
        return failed.profile_tier_level.valid && valid_before;
    };
    expect_sound_use_of_memory(h265_nal_vps(), test::full_vps().syntax.rbsp().bytes(), parse_vps,
                               valid_after);
}

TEST(ParameterSetExhaustion, ClearsValidOfAnSps) {
    expect_sound_use_of_memory(h265_nal_sps(), test::full_sps().syntax.rbsp().bytes(), parse_sps,
                               becomes_false<h265_nal_sps>);
}

TEST(ParameterSetExhaustion, ClearsValidOfAPps) {
    expect_sound_use_of_memory(h265_nal_pps(), test::full_pps().syntax.rbsp().bytes(), parse_pps,
                               becomes_false<h265_nal_pps>);
}

// Records that have held something smaller, or something larger.

using test::exhaustion;
using test::expect_sound_reuse;

template <class Record, class Parse>
test::content<Record> content_of(const test::bit_writer& bits, Parse parse) {
    return {bits, parse};
}

// NAL and VCL HRD parameters of one sub-layer and one CPB.
test::bit_writer small_hrd_parameters() {
    test::bit_writer bits;
    bits.u<1>(1).u<1>(1).u<1>(0).u<4>(1).u<4>(2).u<5>(3).u<5>(4).u<5>(5);
    bits.u<1>(1).ue(6).ue(0);
    return bits.ue(7).ue(8).u<1>(1).ue(9).ue(10).u<1>(0);
}

test::bit_writer small_vui_parameters() {
    test::bit_writer bits;
    bits.u<4>(0).u<4>(0).u<1>(1).u<32>(1).u<32>(50).u<1>(0).u<1>(1);
    return test::append(bits, small_hrd_parameters()).u<1>(0);
}

test::bit_writer predicted_scaling_lists() {
    constexpr unsigned int matrices = 3 * 6 + 2;
    test::bit_writer bits;
    for (unsigned int i = 0; i < matrices; ++i) {
        bits.u<1>(0).ue(i);
    }
    return bits;
}

test::bit_writer set_of_one_picture() {
    return test::bit_writer().ue(1).ue(0).ue(2).u<1>(1);
}

TEST(ParameterSetReuse, SurvivesExhaustionInALayer) {
    using layer_t = h265_profile_tier_level::layer_t;
    const auto small =
        content_of<layer_t>(test::bit_writer().u<8>(93), [](layer_t& layer, auto& reader) {
            layer.profile_present_flag = false;
            layer.level_present_flag = true;
            return layer.parse(reader);
        });
    const auto large =
        content_of<layer_t>(test::minimal_profile_tier_level(), [](layer_t& layer, auto& reader) {
            layer.profile_present_flag = true;
            layer.level_present_flag = true;
            return layer.parse(reader);
        });
    expect_sound_reuse(small, large, exhaustion::returns_false, stays<layer_t>);
}

TEST(ParameterSetReuse, SurvivesExhaustionInAProfileTierLevel) {
    const auto small = content_of<h265_profile_tier_level>(
        test::minimal_profile_tier_level(),
        [](auto& ptl, auto& reader) { return ptl.parse(true, 0, reader); });
    const auto large = content_of<h265_profile_tier_level>(
        test::full_profile_tier_level().syntax, [](auto& ptl, auto& reader) {
            return ptl.parse(true, test::sample_max_sub_layers_minus1, reader);
        });
    // The general layer has its memory, so that it is sub_layers or a layer of it that fails.
    const auto valid_after = [](const h265_profile_tier_level& failed, bool valid_before) {
        return failed.sub_layers.empty() && valid_before;
    };
    expect_sound_reuse(small, large, exhaustion::returns_false, valid_after);
}

TEST(ParameterSetReuse, SurvivesExhaustionInHrdParameters) {
    using sub_layer_hrd = h265_nal_sub_layer_hrd_parameters;
    const auto of_cpbs = [](unsigned int cpb_count) {
        test::bit_writer bits;
        for (unsigned int i = 0; i < cpb_count; ++i) {
            bits.ue(i).ue(2 * i).u<1>(1);
        }
        return content_of<sub_layer_hrd>(bits, [cpb_count](auto& hrd, auto& reader) {
            return hrd.parse(0, cpb_count, h265_hrd_parameters(), reader);
        });
    };
    expect_sound_reuse(of_cpbs(1), of_cpbs(4), exhaustion::returns_false,
                       becomes_false<sub_layer_hrd>);

    const auto small = content_of<h265_hrd_parameters>(
        small_hrd_parameters(), [](auto& hrd, auto& reader) { return hrd.parse(true, 0, reader); });
    const auto large = content_of<h265_hrd_parameters>(
        test::full_hrd_parameters().syntax, [](auto& hrd, auto& reader) {
            return hrd.parse(true, test::sample_max_sub_layers_minus1, reader);
        });
    expect_sound_reuse(small, large, exhaustion::returns_false, becomes_false<h265_hrd_parameters>);
}

TEST(ParameterSetReuse, SurvivesExhaustionInScalingListData) {
    const auto parse = [](auto& lists, auto& reader) { return lists.parse(reader); };
    expect_sound_reuse(
        content_of<h265_scaling_list_data>(predicted_scaling_lists(), parse),
        content_of<h265_scaling_list_data>(test::full_scaling_list_data().syntax, parse),
        exhaustion::returns_false, becomes_false<h265_scaling_list_data>);
}

TEST(ParameterSetReuse, SurvivesExhaustionInAShortTermSet) {
    const auto parse_first = [](auto& set, auto& reader) {
        return set.parse(reader, h265_nal_sps(), 0, {});
    };
    const auto one_picture = content_of<h265_st_ref_pic_set>(set_of_one_picture(), parse_first);
    expect_sound_reuse(
        one_picture,
        content_of<h265_st_ref_pic_set>(test::explicit_st_ref_pic_set().syntax, parse_first),
        exhaustion::returns_false, becomes_false<h265_st_ref_pic_set>);

    // Predicted from a set of one picture, and from one of three.
    const auto predicted = [](unsigned int pictures, const test::bit_writer& bits) {
        std::vector<h265_st_ref_pic_set> sets(1);
        sets[0].num_negative_pics = sets[0].NumDeltaPocs = pictures;
        return content_of<h265_st_ref_pic_set>(bits, [sets](auto& set, auto& reader) {
            return set.parse(reader, h265_nal_sps(), 1, sets);
        });
    };
    const auto small = predicted(1, test::bit_writer().u<1>(1).u<1>(0).ue(0).u<1>(1).u<1>(1));
    // std::vector<bool> takes a word for 64 flags.
    test::bit_writer many = test::bit_writer().u<1>(1).u<1>(0).ue(0);
    for (unsigned int i = 0; i <= 100; ++i) {
        many.u<1>(1);
    }
    expect_sound_reuse(small, predicted(100, many), exhaustion::returns_false,
                       becomes_false<h265_st_ref_pic_set>);
}

TEST(ParameterSetReuse, SurvivesExhaustionInAVui) {
    const auto of_sub_layers = [](const test::bit_writer& bits,
                                  unsigned char max_sub_layers_minus1) {
        return content_of<h265_vui_parameters>(
            bits, [max_sub_layers_minus1](auto& vui, auto& reader) {
                h265_nal_sps sps;
                sps.sps_max_sub_layers_minus1 = max_sub_layers_minus1;
                return vui.parse(reader, sps);
            });
    };
    expect_sound_reuse(
        of_sub_layers(small_vui_parameters(), 0),
        of_sub_layers(test::full_vui_parameters().syntax, test::sample_max_sub_layers_minus1),
        exhaustion::returns_false, becomes_false<h265_vui_parameters>);
}

TEST(ParameterSetReuse, SurvivesExhaustionInAVps) {
    test::vps_syntax small;
    small.layer_sets = test::bit_writer().u<6>(0).ue(1).u<1>(1);
    // The first HRD structure has no common information.
    small.timing_info = test::bit_writer().u<1>(1).u<32>(1).u<32>(50).u<1>(0).ue(1);
    small.timing_info.ue(0).u<1>(1).ue(3).ue(0);
    const auto valid_after = [](const h265_nal_vps& failed, bool valid_before) {
        const h265_profile_tier_level& ptl = failed.profile_tier_level;
        const bool behind_ptl =
            ptl.valid && ptl.sub_layers.size() == test::sample_max_sub_layers_minus1;
        return behind_ptl && valid_before;
    };
    expect_sound_reuse(content_of<h265_nal_vps>(small.rbsp(), parse_vps),
                       content_of<h265_nal_vps>(test::full_vps().syntax.rbsp(), parse_vps),
                       exhaustion::returns_false, valid_after);
}

TEST(ParameterSetReuse, SurvivesExhaustionInAnSps) {
    test::sps_syntax small;
    small.scaling_list = test::bit_writer().u<1>(1).u<1>(1);
    test::append(small.scaling_list, predicted_scaling_lists());
    small.short_term_ref_pic_sets = test::bit_writer().ue(1);
    test::append(small.short_term_ref_pic_sets, set_of_one_picture());
    small.long_term_ref_pics = test::bit_writer().u<1>(1).ue(1).u<8>(5).u<1>(1);
    small.vui = test::bit_writer().u<1>(1);
    test::append(small.vui, small_vui_parameters());
    expect_sound_reuse(content_of<h265_nal_sps>(small.rbsp(), parse_sps),
                       content_of<h265_nal_sps>(test::full_sps().syntax.rbsp(), parse_sps),
                       exhaustion::returns_false, becomes_false<h265_nal_sps>);
}

TEST(ParameterSetReuse, SurvivesExhaustionInAPps) {
    test::pps_syntax small;
    small.tiles = test::bit_writer().u<1>(1).u<1>(0).ue(1).ue(1).u<1>(0).ue(3).ue(4).u<1>(1);
    small.scaling_list = test::bit_writer().u<1>(1);
    test::append(small.scaling_list, predicted_scaling_lists());
    expect_sound_reuse(content_of<h265_nal_pps>(small.rbsp(), parse_pps),
                       content_of<h265_nal_pps>(test::full_pps().syntax.rbsp(), parse_pps),
                       exhaustion::returns_false, becomes_false<h265_nal_pps>);
}

// What the full structures have that the standard does not allow, or reads otherwise, gives way
// here.

// Every matrix is the default one.
test::bit_writer default_scaling_lists() {
    constexpr unsigned int matrices = 3 * 6 + 2;
    test::bit_writer bits;
    for (unsigned int i = 0; i < matrices; ++i) {
        bits.u<1>(0).ue(0);
    }
    return bits;
}

test::vps_syntax vps_of_the_standard() {
    test::vps_syntax syntax = test::full_vps().syntax;
    syntax.timing_info = test::bit_writer().u<1>(1).u<32>(1).u<32>(50).u<1>(0).ue(2);
    test::append(syntax.timing_info.ue(0), test::full_hrd_parameters().syntax);
    test::append(syntax.timing_info.ue(1).u<1>(1), test::full_hrd_parameters().syntax);
    return syntax;
}

test::sps_syntax sps_of_the_standard() {
    test::sps_syntax syntax = test::full_sps().syntax;
    syntax.scaling_list = test::bit_writer().u<1>(1).u<1>(1);
    test::append(syntax.scaling_list, default_scaling_lists());
    syntax.short_term_ref_pic_sets = test::bit_writer().ue(2);
    test::append(syntax.short_term_ref_pic_sets, test::explicit_st_ref_pic_set().syntax);
    test::append(syntax.short_term_ref_pic_sets, test::predicted_st_ref_pic_set().syntax);
    return syntax;
}

test::pps_syntax pps_of_the_standard() {
    test::pps_syntax syntax = test::full_pps().syntax;
    syntax.scaling_list = test::bit_writer().u<1>(1);
    test::append(syntax.scaling_list, default_scaling_lists());
    return syntax;
}

// By the standard's rules a record starts afresh, and its memory with it.
template <class Record, class Parse>
void expect_standard_failure(const bytes& input, Parse parse) {
    expect_failure_at_every_allocation(Record(), input, parse, becomes_false<Record>);
}

TEST(ParameterSetExhaustion, ClearsValidOfAStructureReadByTheStandard) {
    expect_standard_failure<h265_profile_tier_level>(
        test::full_profile_tier_level().syntax.bytes(), [](auto& ptl, auto& reader) {
            return ptl.parse_standard(true, test::sample_max_sub_layers_minus1, reader);
        });
    expect_standard_failure<h265_nal_sub_layer_hrd_parameters>(
        bytes(20, 0xFF), [](auto& hrd, auto& reader) {
            return hrd.parse_standard(0, 4, h265_hrd_parameters(), reader);
        });
    expect_standard_failure<h265_hrd_parameters>(
        test::full_hrd_parameters().syntax.bytes(), [](auto& hrd, auto& reader) {
            return hrd.parse_standard(true, test::sample_max_sub_layers_minus1, reader);
        });
    expect_standard_failure<h265_scaling_list_data>(
        default_scaling_lists().bytes(),
        [](auto& lists, auto& reader) { return lists.parse_standard(reader); });
    expect_standard_failure<h265_vui_parameters>(
        test::full_vui_parameters().syntax.bytes(), [](auto& vui, auto& reader) {
            static h265_nal_sps sps;
            sps.sps_max_sub_layers_minus1 = test::sample_max_sub_layers_minus1;
            return vui.parse_standard(reader, sps);
        });
}

TEST(ParameterSetExhaustion, ClearsValidOfAShortTermSetReadByTheStandard) {
    const std::vector<h265_st_ref_pic_set> sets = {test::explicit_st_ref_pic_set().record};
    expect_standard_failure<h265_st_ref_pic_set>(test::explicit_st_ref_pic_set().syntax.bytes(),
                                                 [](auto& set, auto& reader) {
                                                     static const h265_nal_sps sps;
                                                     return set.parse_standard(reader, sps, 0, {});
                                                 });
    // With deltaRps of 1, -5, -1 and 2 become -4, 0, which goes, and 3; and 1 is added.
    test::bit_writer predicted = test::bit_writer().u<1>(1).u<1>(0).ue(0);
    predicted.u<1>(1).u<1>(1).u<1>(1).u<1>(1);
    expect_standard_failure<h265_st_ref_pic_set>(predicted.bytes(), [&](auto& set, auto& reader) {
        static const h265_nal_sps sps;
        return set.parse_standard(reader, sps, 1, sets);
    });
}

TEST(ParameterSetExhaustion, ClearsValidOfAParameterSetReadByTheStandard) {
    expect_standard_failure<h265_nal_vps>(
        vps_of_the_standard().rbsp().bytes(),
        [](auto& vps, auto& reader) { return vps.parse_standard(reader); });
    expect_standard_failure<h265_nal_sps>(
        sps_of_the_standard().rbsp().bytes(), [](auto& sps, auto& reader) {
            static h2645_common_base_store<h265_nal_vps> store = test::vps_store_with(13);
            return sps.parse_standard(reader, store);
        });
    expect_standard_failure<h265_nal_pps>(
        pps_of_the_standard().rbsp().bytes(), [](auto& pps, auto& reader) {
            static h2645_common_base_store<h265_nal_sps> store = [] {
                auto with_large_pictures = test::sps_store_with(15);
                with_large_pictures[15].pic_width_in_luma_samples = 8192;
                with_large_pictures[15].pic_height_in_luma_samples = 4320;
                return with_large_pictures;
            }();
            return pps.parse_standard(reader, store);
        });
}

bool parse_standard_sps(h265_nal_sps& sps, h2645_common_bitreader& reader) {
    static h2645_common_base_store<h265_nal_vps> store;
    return sps.parse_standard(reader, store);
}

bool parse_standard_pps(h265_nal_pps& pps, h2645_common_bitreader& reader) {
    static h2645_common_base_store<h265_nal_sps> store;
    return pps.parse_standard(reader, store);
}

TEST(ParameterSetExhaustion, ClearsValidOfAParameterSetWithExtensions) {
    expect_standard_failure<h265_nal_sps>(
        test::sps_with_extension(test::full_sps_extensions().syntax).rbsp().bytes(),
        parse_standard_sps);
    expect_standard_failure<h265_nal_pps>(
        test::pps_with_extension(test::full_pps_extensions().syntax).rbsp().bytes(),
        parse_standard_pps);
}

TEST(ParameterSetExhaustion, ClearsValidOfAParameterSetWithAnUnknownExtension) {
    const auto unknown = test::bit_writer().u<8>(0b11010000).u<64>(0x123456789ABCDEF);
    expect_standard_failure<h265_nal_sps>(test::sps_with_extension(unknown).rbsp().bytes(),
                                          parse_standard_sps);
    expect_standard_failure<h265_nal_pps>(test::pps_with_extension(unknown).rbsp().bytes(),
                                          parse_standard_pps);
}

TEST(ParameterSetExhaustion, ClearsValidOfAParameterSetWithBitsBehindItsExtensions) {
    const auto left = test::bit_writer().u<8>(0).u<64>(0x123456789ABCDEF);
    expect_standard_failure<h265_nal_sps>(test::sps_with_extension(left).rbsp().bytes(),
                                          parse_standard_sps);
    expect_standard_failure<h265_nal_pps>(test::pps_with_extension(left).rbsp().bytes(),
                                          parse_standard_pps);
}

// Small extensions of the same kinds, which allocate less.
TEST(ParameterSetReuse, SurvivesExhaustionInExtensions) {
    test::bit_writer sps = test::bit_writer().u<8>(0b00010001);
    sps.u<1>(0).u<1>(1).ue(1).ue(0).u<1>(1).ue(0).u<24>(0).u<2>(0).u<1>(0).u<1>(1);
    expect_sound_reuse(
        content_of<h265_nal_sps>(test::sps_with_extension(sps).rbsp(), parse_standard_sps),
        content_of<h265_nal_sps>(
            test::sps_with_extension(test::full_sps_extensions().syntax).rbsp(),
            parse_standard_sps),
        exhaustion::returns_false, becomes_false<h265_nal_sps>);

    test::bit_writer pps = test::bit_writer().u<8>(0b11110001);
    pps.ue(0).u<1>(0).u<1>(1).ue(0).ue(0).se(0).se(0).ue(0).ue(0);
    pps.u<1>(0).u<1>(0).ue(1).u<6>(0).u<3>(0).u<1>(1);
    pps.ue(0).u<6>(0).u<4>(0).ue(0).ue(0).ue(0).ue(0).u<4>(0).u<4>(0);
    pps.u<1>(1).u<6>(0).u<4>(0).u<1>(1).u<2>(0b00).u<8>(0);
    pps.u<3>(0b001).ue(1).u<1>(0).ue(0).ue(0).u<24>(0).u<1>(1);
    expect_sound_reuse(
        content_of<h265_nal_pps>(test::pps_with_extension(pps).rbsp(), parse_standard_pps),
        content_of<h265_nal_pps>(
            test::pps_with_extension(test::full_pps_extensions().syntax).rbsp(),
            parse_standard_pps),
        exhaustion::returns_false, becomes_false<h265_nal_pps>);
}

}  // namespace
}  // namespace kovran
