// Data that end at any bit of a structure: what the parse tells is the element that the end falls
// into, or the count of more entries than the rest holds.
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_nal_sei_active_parameter_sets.h>
#include <kovran/h265/h265_nal_sei_buffering_period.h>
#include <kovran/h265/h265_nal_sei_pic_timing.h>
#include <kovran/h265/h265_slice_segment_header.h>
#include <kovran/h265/h265_trace.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "support/bit_writer.h"
#include "support/full_values.h"
#include "support/parameter_sets.h"
#include "support/rbsp.h"
#include "support/slice_stores.h"

namespace kovran {
namespace {

// The first bits of a structure. They end with a byte, so that nothing follows them; zeros that are
// skipped make up for that in front.
class beginning {
public:
    beginning(const test::bit_writer& whole, std::size_t size) : skipped_((8 - size % 8) % 8) {
        test::bit_writer bits;
        for (std::size_t i = 0; i < skipped_; ++i) {
            bits.u<1>(0);
        }
        bytes_ = test::append(bits, test::first_bits(whole, size)).bytes();
    }

    std::size_t skipped() const { return skipped_; }

    template <class Parse>
    bool parse_into(Parse parse, h265_trace& trace, h265_fault& fault) const {
        test::rbsp input{bytes_};
        input.reader.skip(static_cast<unsigned int>(skipped_));
        return parse(input.reader, trace, fault);
    }

private:
    std::size_t skipped_;
    std::vector<unsigned char> bytes_;
};

// An element that announces entries, which are compared with the rest of the data behind another:
// its value and so many, of so many bits at the least.
struct announcement {
    std::string count;
    std::string compared_behind;
    std::uint64_t added;
    std::uint64_t fewest_bits;
};

std::string base_name(const h265_traced_element& element) {
    return element.name;
}

std::size_t end_of(const h265_traced_element& element) {
    return element.first_bit + element.width;
}

struct expectation {
    h265_fault_kind kind = h265_fault_kind::data_ended;
    const h265_traced_element* element = nullptr;
    std::int64_t highest = 0;
};

// Of data that end in front of bit `size`, by the trace of the whole.
expectation expected_at(std::size_t size, const h265_trace& trace,
                        const std::vector<announcement>& announcements) {
    const auto& elements = trace.elements;
    for (std::size_t i = 0; i < elements.size(); ++i) {
        if (end_of(elements[i]) > size) {
            return {h265_fault_kind::data_ended, &elements[i], 0};
        }
        for (const announcement& each : announcements) {
            if (base_name(elements[i]) != each.compared_behind) {
                continue;
            }
            std::size_t count = i;
            while (base_name(elements[count]) != each.count) {
                --count;
            }
            const std::uint64_t left = size - end_of(elements[i]);
            const auto entries = static_cast<std::uint64_t>(elements[count].value) + each.added;
            if (left < entries * each.fewest_bits) {
                const std::uint64_t held = left / each.fewest_bits;
                return {h265_fault_kind::value, &elements[count],
                        static_cast<std::int64_t>(held) - static_cast<std::int64_t>(each.added)};
            }
        }
    }
    return {h265_fault_kind::none, nullptr, 0};
}

std::string place_of(const h265_fault& fault) {
    std::string place;
    for (unsigned int i = 0; i < fault.structure_count; ++i) {
        place += to_string(fault.structures[i]) + ".";
    }
    return place + to_string(fault.element);
}

// Up to the trailing bits, or the first bit of byte_alignment(). parse(reader, trace, fault) reads
// a fresh record.
template <class Parse>
void expect_every_end_is_told(const test::bit_writer& whole,
                              const std::vector<announcement>& announcements, Parse parse) {
    h265_trace trace;
    h265_fault fault;
    test::rbsp input{whole.bytes()};
    ASSERT_TRUE(parse(input.reader, trace, fault)) << to_string(fault);
    ASSERT_EQ(fault.kind, h265_fault_kind::none);
    std::size_t end = 0;
    for (const h265_traced_element& element : trace.elements) {
        if (base_name(element) != "rbsp_stop_one_bit" &&
            base_name(element) != "rbsp_alignment_zero_bit" &&
            base_name(element) != "alignment_bit_equal_to_zero") {
            end = end_of(element);
        }
    }
    ASSERT_GT(end, 0U);
    for (std::size_t size = 0; size < end && !testing::Test::HasFailure(); ++size) {
        SCOPED_TRACE(std::to_string(size) + " bits of " + std::to_string(end));
        const beginning cut(whole, size);
        h265_trace cut_trace;
        EXPECT_FALSE(cut.parse_into(parse, cut_trace, fault));
        SCOPED_TRACE(to_string(fault));
        const expectation expected = expected_at(size, trace, announcements);
        EXPECT_EQ(fault.kind, expected.kind);
        ASSERT_NE(expected.element, nullptr);
        EXPECT_EQ(place_of(fault), path_of(trace, *expected.element));
        EXPECT_EQ(fault.first_bit, expected.element->first_bit + cut.skipped());
        if (expected.kind == h265_fault_kind::value) {
            EXPECT_EQ(fault.value, expected.element->value);
            EXPECT_EQ(fault.lowest, 0);
            EXPECT_EQ(fault.highest, expected.highest);
        }
    }
}

// The stop bit may be missing, and the zeros behind it: of a parameter set everything was read.
template <class Parse>
void expect_trailing_bits_are_told(const test::bit_writer& whole, Parse parse) {
    h265_trace trace;
    h265_fault fault;
    test::rbsp input{whole.bytes()};
    ASSERT_TRUE(parse(input.reader, trace, fault));
    std::size_t stop_bit = 0;
    for (const h265_traced_element& element : trace.elements) {
        stop_bit = base_name(element) == "rbsp_stop_one_bit" ? element.first_bit : stop_bit;
    }
    const beginning without(whole, stop_bit);
    EXPECT_TRUE(without.parse_into(parse, trace, fault));
    EXPECT_EQ(fault.kind, h265_fault_kind::trailing_bits);
    EXPECT_EQ(place_of(fault), "rbsp_stop_one_bit");
    EXPECT_EQ(fault.first_bit, stop_bit + without.skipped());
    const beginning with_stop_bit(whole, stop_bit + 1);
    EXPECT_TRUE(with_stop_bit.parse_into(parse, trace, fault));
    EXPECT_EQ(fault.kind, h265_fault_kind::none);
}

const announcement cpbs = {"cpb_cnt_minus1", "cpb_cnt_minus1", 1, 3};

TEST(DataEnd, OfAVpsIsTold) {
    const auto values = test::full_vps_values();
    const auto parse = [](auto& reader, auto& trace, auto& fault) {
        return h265_nal_vps().parse_standard(reader, trace, &fault);
    };
    expect_trailing_bits_are_told(test::bits_of(values), parse);
    expect_every_end_is_told(test::bits_of(values),
                             {{"vps_num_layer_sets_minus1", "vps_num_layer_sets_minus1", 0, 1},
                              {"vps_num_hrd_parameters", "vps_num_hrd_parameters", 0, 4},
                              cpbs},
                             parse);
}

TEST(DataEnd, OfAnSpsIsTold) {
    const auto values = test::full_sps_values();
    h2645_common_base_store<h265_nal_vps> vps_store;
    const auto parse = [&](auto& reader, auto& trace, auto& fault) {
        return h265_nal_sps().parse_standard(reader, vps_store, trace, &fault);
    };
    expect_trailing_bits_are_told(test::bits_of(values), parse);
    expect_every_end_is_told(test::bits_of(values),
                             {{"num_short_term_ref_pic_sets", "num_short_term_ref_pic_sets", 0, 2},
                              {"num_long_term_ref_pics_sps", "num_long_term_ref_pics_sps", 0, 5},
                              cpbs},
                             parse);
}

TEST(DataEnd, OfAPpsIsTold) {
    const auto values = test::full_pps_values();
    h2645_common_base_store<h265_nal_sps> sps_store;
    const auto parse = [&](auto& reader, auto& trace, auto& fault) {
        return h265_nal_pps().parse_standard(reader, sps_store, trace, &fault);
    };
    expect_trailing_bits_are_told(test::bits_of(values), parse);
    expect_every_end_is_told(test::bits_of(values),
                             {{"num_tile_columns_minus1", "uniform_spacing_flag", 0, 1},
                              {"num_tile_rows_minus1", "uniform_spacing_flag", 0, 1}},
                             parse);
}

TEST(DataEnd, OfASliceSegmentHeaderIsTold) {
    const auto values = test::full_slice_values();
    h2645_common_base_store<h265_nal_vps> vps_store;
    h2645_common_base_store<h265_nal_sps> sps_store;
    h2645_common_base_store<h265_nal_pps> pps_store;
    vps_store[0];
    test::rbsp sps_input{test::bits_of(values.sps).bytes()};
    ASSERT_TRUE(sps_store[0].parse_standard(sps_input.reader, vps_store));
    test::rbsp pps_input{test::bits_of(values.pps).bytes()};
    ASSERT_TRUE(pps_store[0].parse_standard(pps_input.reader, sps_store));
    expect_every_end_is_told(
        test::bits_of(values),
        {{"num_entry_point_offsets", "offset_len_minus1", 0, 11},
         {"slice_segment_header_extension_length", "slice_segment_header_extension_length", 0, 8}},
        [&](auto& reader, auto& trace, auto& fault) {
            return h265_slice_segment_header().parse_standard(reader, pps_store, sps_store,
                                                              vps_store, TRAIL_R, trace, &fault);
        });
}

TEST(DataEnd, OfADependentSliceSegmentIsTold) {
    test::slice_stores stream;
    stream.sps().pic_height_in_luma_samples = 256;
    stream.pps().dependent_slice_segments_enabled_flag = true;
    stream.pps().entropy_coding_sync_enabled_flag = true;
    stream.pps().slice_segment_header_extension_present_flag = true;
    test::bit_writer bits = test::bit_writer().u<1>(0).ue(0).u<1>(1).u<2>(3);
    bits.ue(2).ue(31).u<32>(0x01234567).u<32>(0x89ABCDEF).ue(3).u<24>(0xABCDEF);
    expect_every_end_is_told(
        bits.trailing_bits(),
        {{"num_entry_point_offsets", "offset_len_minus1", 0, 32},
         {"slice_segment_header_extension_length", "slice_segment_header_extension_length", 0, 8}},
        [&](auto& reader, auto& trace, auto& fault) {
            return h265_slice_segment_header().parse_standard(reader, stream.pps_store,
                                                              stream.sps_store, stream.vps_store,
                                                              TRAIL_R, trace, &fault);
        });
}

h265_nal_sps sps_with_hrd() {
    h265_nal_sps sps;
    sps.pic_width_in_luma_samples = 1280;
    sps.pic_height_in_luma_samples = 64;
    sps.log2_diff_max_min_luma_coding_block_size = 3;
    sps.vui_parameters.frame_field_info_present_flag = true;
    h265_hrd_parameters& hrd = sps.vui_parameters.hrd_parameters;
    hrd.nal_hrd_parameters_present_flag = true;
    hrd.vcl_hrd_parameters_present_flag = true;
    hrd.initial_cpb_removal_delay_length_minus1 = 8;
    hrd.au_cpb_removal_delay_length_minus1 = 4;
    hrd.dpb_output_delay_length_minus1 = 5;
    hrd.dpb_output_delay_du_length_minus1 = 6;
    hrd.du_cpb_removal_delay_increment_length_minus1 = 7;
    hrd.cpb_cnt_minus1 = {1};
    return sps;
}

TEST(DataEnd, OfABufferingPeriodIsTold) {
    h2645_common_base_store<h265_nal_sps> store;
    store[2] = sps_with_hrd();
    test::bit_writer bits;
    bits.ue(2).u<1>(1).u<5>(3).u<6>(9).u<1>(1).u<5>(7);
    for (unsigned int i = 0; i < 2 * 2 * 4; ++i) {
        bits.u<9>(100 + i);
    }
    expect_every_end_is_told(bits.trailing_bits(), {}, [&](auto& reader, auto& trace, auto& fault) {
        return h265_nal_sei_buffering_period().parse_standard(reader, store, trace, &fault);
    });
}

TEST(DataEnd, OfPictureTimingIsTold) {
    h265_nal_sps sps = sps_with_hrd();
    sps.vui_parameters.hrd_parameters.sub_pic_hrd_params_present_flag = true;
    sps.vui_parameters.hrd_parameters.sub_pic_cpb_params_in_pic_timing_sei_flag = true;
    test::bit_writer bits;
    bits.u<4>(1).u<2>(1).u<1>(0).u<5>(3).u<6>(4).u<7>(5);
    bits.ue(3).u<1>(0).ue(2).u<8>(9).ue(0).u<8>(8).ue(5).u<8>(7).ue(1);
    expect_every_end_is_told(
        bits.trailing_bits(),
        {{"num_decoding_units_minus1", "du_common_cpb_removal_delay_flag", 1, 1}},
        [&](auto& reader, auto& trace, auto& fault) {
            return h265_nal_sei_pic_timing().parse_standard(reader, sps, trace, &fault);
        });
}

TEST(DataEnd, OfActiveParameterSetsIsTold) {
    h2645_common_base_store<h265_nal_vps> store;
    store[4].vps_base_layer_internal_flag = true;
    store.at(4).vps_max_layers_minus1 = 2;
    test::bit_writer bits;
    bits.u<4>(4).u<1>(1).u<1>(0).ue(2).ue(3).ue(0).ue(15).ue(1).ue(2);
    expect_every_end_is_told(bits.trailing_bits(), {}, [&](auto& reader, auto& trace, auto& fault) {
        return h265_nal_sei_active_parameter_sets().parse_standard(reader, store, trace, &fault);
    });
}

}  // namespace
}  // namespace kovran
