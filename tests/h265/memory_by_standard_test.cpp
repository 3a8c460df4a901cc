// Memory of records that are read by the standard's rules: a used one allocates nothing for a like
// stream, and what cannot be allocated is told.
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_nal_sei_active_parameter_sets.h>
#include <kovran/h265/h265_nal_sei_buffering_period.h>
#include <kovran/h265/h265_nal_sei_pic_timing.h>
#include <kovran/h265/h265_slice_segment_header.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <new>
#include <string>

#include "support/allocation_failure.h"
#include "support/bit_writer.h"
#include "support/extensions.h"
#include "support/full_values.h"
#include "support/parameter_sets.h"
#include "support/rbsp.h"
#include "support/same_fields.h"
#include "support/slice_record_fields.h"

namespace kovran {
namespace {

// parse(record, reader, fault) with a fault pointer that may be null.
template <class Record, class Parse>
void expect_nothing_allocated(const test::bit_writer& bits, Parse parse) {
    test::rbsp input{bits.bytes()};
    Record record;
    ASSERT_TRUE(parse(record, input.reader, nullptr));
    const Record fresh = record;
    for (const bool told : {false, true}) {
        test::rbsp like_input{bits.bytes()};
        h265_fault fault;
        const test::allocation_count count;
        const bool read = parse(record, like_input.reader, told ? &fault : nullptr);
        EXPECT_EQ(count.allocations(), 0U);
        EXPECT_TRUE(read);
        EXPECT_TRUE(test::same_fields(record, fresh));
    }
}

// Of a fresh record, each allocation in turn. What is left is a fresh record as well.
template <class Record, class Parse>
void expect_exhaustion_told(const test::bit_writer& bits, bool throws, Parse parse) {
    std::size_t n = 1;
    for (bool failed = true; failed && !testing::Test::HasFailure(); ++n) {
        SCOPED_TRACE("allocation " + std::to_string(n));
        test::rbsp input{bits.bytes()};
        Record record;
        h265_fault fault;
        bool read = false;
        bool thrown = false;
        {
            const test::allocation_failure failure(n);
            try {
                read = parse(record, input.reader, &fault);
            } catch (const std::bad_alloc&) {
                thrown = true;
            }
            failed = failure.happened();
        }
        EXPECT_EQ(read, !failed);
        EXPECT_EQ(record.valid, read);
        if (failed) {
            EXPECT_EQ(fault.kind, h265_fault_kind::no_memory) << to_string(fault);
            EXPECT_NE(std::string(fault.element.name), "");
            EXPECT_TRUE(test::same_fields(record, Record()));
        }
        EXPECT_TRUE(throws || !thrown);
    }
    EXPECT_GT(n, 2U);
}

template <class Record, class Parse>
void expect_sound_memory(const test::bit_writer& bits, Parse parse, bool throws = false) {
    expect_nothing_allocated<Record>(bits, parse);
    expect_exhaustion_told<Record>(bits, throws, parse);
}

// hrd_parameters() with NAL and VCL parameters in two sub-layers, of two CPBs and of one.
test::bit_writer hrd_parameters() {
    test::bit_writer bits;
    bits.u<1>(1).u<1>(1).u<1>(1).u<8>(0).u<5>(7).u<1>(1).u<5>(7);
    bits.u<4>(0).u<4>(0).u<4>(0).u<5>(8).u<5>(4).u<5>(5);
    for (const unsigned int cpbs : {2U, 1U}) {
        bits.u<1>(1).ue(0).ue(cpbs - 1);
        for (unsigned int i = 0; i < 2 * cpbs; ++i) {
            bits.ue(3).ue(4).ue(5).ue(6).u<1>(1);
        }
    }
    return bits;
}

// Two sub-layers, the lower of which has a profile and a level.
test::bit_writer profile_tier_level() {
    test::bit_writer bits = test::minimal_profile_tier_level();
    bits.u<2>(3).u<14>(0);
    return test::append(bits, test::minimal_profile_tier_level());
}

// Extensions without their last bits, among which is one that is 1: they are kept as they are.
test::bit_writer cut_off(const test::bit_writer& extensions) {
    constexpr std::size_t missing = 20;
    return test::first_bits(extensions, extensions.size() - missing);
}

TEST(MemoryByStandard, OfAVps) {
    const auto parse = [](auto& record, auto& reader, h265_fault* fault) {
        return record.parse_standard(reader, fault);
    };
    expect_sound_memory<h265_nal_vps>(test::bits_of(test::full_vps_values()), parse);

    test::vps_syntax vps;
    vps.header = test::bit_writer().u<4>(0).u<1>(1).u<1>(1).u<6>(0).u<3>(1).u<1>(1).u<16>(0xFFFF);
    vps.profile_tier_level = profile_tier_level();
    vps.sub_layer_ordering_info = test::bit_writer().u<1>(0).ue(4).ue(2).ue(0);
    vps.layer_sets = test::bit_writer().u<6>(3).ue(2).u<8>(0x93);
    vps.timing_info = test::bit_writer().u<1>(1).u<32>(1).u<32>(50).u<1>(0).ue(2).ue(0);
    test::append(vps.timing_info, hrd_parameters()).ue(1).u<1>(1);
    test::append(vps.timing_info, hrd_parameters());
    expect_sound_memory<h265_nal_vps>(vps.rbsp(), parse);
}

TEST(MemoryByStandard, OfAnSps) {
    h2645_common_base_store<h265_nal_vps> store;
    const auto parse = [&](auto& record, auto& reader, h265_fault* fault) {
        return record.parse_standard(reader, store, fault);
    };
    expect_sound_memory<h265_nal_sps>(test::bits_of(test::full_sps_values()), parse);
    expect_sound_memory<h265_nal_sps>(test::bits_of(test::sps_values()), parse);

    test::sps_syntax sps;
    sps.header = test::bit_writer().u<4>(0).u<3>(1).u<1>(1);
    sps.profile_tier_level = profile_tier_level();
    sps.sub_layer_ordering_info = test::bit_writer().u<1>(0).ue(4).ue(2).ue(0);
    sps.vui = test::bit_writer().u<1>(1).u<8>(0);  // up to default_display_window_flag
    sps.vui.u<1>(1).u<32>(1).u<32>(50).u<1>(0).u<1>(1);
    test::append(sps.vui, hrd_parameters()).u<1>(0);
    expect_sound_memory<h265_nal_sps>(sps.rbsp(), parse);

    const auto extensions = test::full_sps_extensions().syntax;
    expect_sound_memory<h265_nal_sps>(test::sps_with_extension(extensions).rbsp(), parse);
    expect_sound_memory<h265_nal_sps>(test::sps_with_extension(cut_off(extensions)).rbsp(), parse);
}

TEST(MemoryByStandard, OfAPps) {
    h2645_common_base_store<h265_nal_sps> store;
    const auto parse = [&](auto& record, auto& reader, h265_fault* fault) {
        return record.parse_standard(reader, store, fault);
    };
    expect_sound_memory<h265_nal_pps>(test::bits_of(test::full_pps_values()), parse);
    expect_nothing_allocated<h265_nal_pps>(test::bits_of(test::pps_values()), parse);

    const auto extensions = test::full_pps_extensions().syntax;
    expect_sound_memory<h265_nal_pps>(test::pps_with_extension(extensions).rbsp(), parse);
    test::bit_writer broken = test::bit_writer().u<8>(0b11010000);
    test::append(broken, test::pps_range_extension().syntax);
    test::append(broken, test::pps_multilayer_extension().syntax);
    test::append(broken, test::pps_scc_extension().syntax);
    expect_sound_memory<h265_nal_pps>(test::pps_with_extension(cut_off(broken)).rbsp(), parse);
}

void expect_sound_memory_of_slice(const test::slice_values& values) {
    h2645_common_base_store<h265_nal_vps> vps_store;
    h2645_common_base_store<h265_nal_sps> sps_store;
    h2645_common_base_store<h265_nal_pps> pps_store;
    vps_store[0];
    test::rbsp sps_input{test::bits_of(values.sps).bytes()};
    ASSERT_TRUE(sps_store[0].parse_standard(sps_input.reader, vps_store));
    test::rbsp pps_input{test::bits_of(values.pps).bytes()};
    ASSERT_TRUE(pps_store[0].parse_standard(pps_input.reader, sps_store));
    expect_sound_memory<h265_slice_segment_header>(
        test::bits_of(values),
        [&](auto& record, auto& reader, h265_fault* fault) {
            return record.parse_standard(reader, pps_store, sps_store, vps_store, TRAIL_R, fault);
        },
        /*throws=*/true);
}

TEST(MemoryByStandard, OfASliceSegmentHeader) {
    expect_sound_memory_of_slice(test::full_slice_values());

    test::slice_values explicit_set = test::full_slice_values();
    explicit_set.st_ref_pic_set = {};
    explicit_set.st_ref_pic_set.delta_poc_s0_minus1 = {0, 1};
    explicit_set.st_ref_pic_set.delta_poc_s1_minus1 = {0};
    expect_sound_memory_of_slice(explicit_set);
}

h265_nal_sps sps_with_hrd() {
    h265_nal_sps sps;
    sps.pic_width_in_luma_samples = 1280;
    sps.pic_height_in_luma_samples = 64;
    sps.log2_diff_max_min_luma_coding_block_size = 3;
    h265_hrd_parameters& hrd = sps.vui_parameters.hrd_parameters;
    hrd.nal_hrd_parameters_present_flag = true;
    hrd.vcl_hrd_parameters_present_flag = true;
    hrd.sub_pic_hrd_params_present_flag = true;
    hrd.sub_pic_cpb_params_in_pic_timing_sei_flag = true;
    hrd.cpb_cnt_minus1 = {1};
    return sps;
}

// All delays have one bit.
TEST(MemoryByStandard, OfSeiMessages) {
    h2645_common_base_store<h265_nal_sps> sps_store;
    sps_store[0] = sps_with_hrd();
    sps_store.active_id = 0;
    const auto parse = [&](auto& record, auto& reader, h265_fault* fault) {
        return record.parse_standard(reader, sps_store, fault);
    };
    expect_sound_memory<h265_nal_sei_buffering_period>(
        test::bit_writer().ue(0).u<1>(0).u<1>(1).u<16>(0xA5A5).trailing_bits(), parse);
    expect_sound_memory<h265_nal_sei_pic_timing>(
        test::bit_writer().u<3>(5).ue(2).u<1>(0).ue(1).u<1>(1).ue(0).u<1>(0).ue(4), parse);

    h2645_common_base_store<h265_nal_vps> vps_store;
    vps_store[0].vps_max_layers_minus1 = 2;
    expect_sound_memory<h265_nal_sei_active_parameter_sets>(
        test::bit_writer().u<4>(0).u<2>(0).ue(1).ue(0).ue(3).ue(1).ue(0).ue(1),
        [&](auto& record, auto& reader, h265_fault* fault) {
            return record.parse_standard(reader, vps_store, fault);
        });
}

}  // namespace
}  // namespace kovran
