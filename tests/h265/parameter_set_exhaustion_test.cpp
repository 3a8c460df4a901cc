#include <kovran/h265/h265_nal_pps.h>
#include <kovran/h265/h265_nal_sps.h>
#include <kovran/h265/h265_nal_vps.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <vector>

#include "support/allocation_failure.h"
#include "support/bit_writer.h"
#include "support/parameter_sets.h"
#include "support/rbsp.h"
#include "support/record_fields.h"

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

}  // namespace
}  // namespace kovran
