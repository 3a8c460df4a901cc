#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <vector>

#include "support/record_fields.h"
#include "support/slice_record_fields.h"

namespace kovran {
namespace {

// The names and types of the fields are held by test::fields_of, which compiles only where they
// fit.
template <class Record>
class RecordLayout : public testing::Test {};

using parsed_records = testing::Types<
    h265_profile_tier_level::layer_t, h265_profile_tier_level, h265_nal_sub_layer_hrd_parameters,
    h265_hrd_parameters, h265_nal_vps, h265_scaling_list_data, h265_st_ref_pic_set,
    h265_vui_parameters, h265_nal_sps, h265_nal_pps, h265_ref_pic_lists_modification,
    h265_slice_segment_header, h265_nal_sei_pic_timing, h265_nal_sei_buffering_period,
    h265_nal_sei_active_parameter_sets, h265_sps_range_extension, h265_sps_multilayer_extension,
    h265_sps_3d_extension, h265_sps_scc_extension, h265_pps_range_extension,
    h265_colour_mapping_table::part_t, h265_colour_mapping_table, h265_pps_multilayer_extension,
    h265_delta_dlt, h265_pps_3d_extension, h265_pps_scc_extension>;
TYPED_TEST_SUITE(RecordLayout, parsed_records, );

std::size_t aligned(std::size_t offset, std::size_t alignment) {
    return (offset + alignment - 1) / alignment * alignment;
}

template <class Record>
void expect_listed_fields() {
    const Record record{};
    const auto* const start = reinterpret_cast<const unsigned char*>(&record);
    std::size_t end = 0;
    test::for_each_field(record, [&](const char* name, const auto& field) {
        const auto offset =
            static_cast<std::size_t>(reinterpret_cast<const unsigned char*>(&field) - start);
        EXPECT_EQ(offset, aligned(end, alignof(decltype(field)))) << name;
        end = offset + sizeof(field);
    });
    EXPECT_EQ(aligned(end, alignof(Record)), sizeof(Record));
}

template <class Value>
bool zero_and_empty(const Value& value);

template <class Value, std::size_t Count>
bool zero_and_empty(const std::array<Value, Count>& values) {
    return std::all_of(values.begin(), values.end(),
                       [](const Value& value) { return zero_and_empty(value); });
}

template <class Value>
bool zero_and_empty(const Value& value) {
    if constexpr (test::is_record<Value>::value) {
        bool all = true;
        test::for_each_field(value, [&](const char* /*name*/, const auto& field) {
            all = all && zero_and_empty(field);
        });
        return all;
    } else if constexpr (std::is_arithmetic_v<Value>) {
        return value == 0;
    } else {
        return value.empty();
    }
}

TYPED_TEST(RecordLayout, IsThatOfAnAggregate) {
    static_assert(std::is_aggregate_v<TypeParam>);
    static_assert(std::is_copy_assignable_v<TypeParam>);
    static_assert(std::is_nothrow_move_assignable_v<TypeParam>);
}

TYPED_TEST(RecordLayout, HasTheListedFieldsInTheirOrderAndNoOthers) {
    expect_listed_fields<TypeParam>();
}

TYPED_TEST(RecordLayout, IsZeroAndEmptyAtFirst) {
    const TypeParam record;
    test::for_each_field(record, [](const char* name, const auto& field) {
        EXPECT_TRUE(zero_and_empty(field)) << name;
    });
}

// What only parse_standard() reads stands behind what parse() has always read.
template <class Record, std::size_t After>
constexpr bool has_valid_before() {
    constexpr auto list = test::fields_of<Record>::list;
    return std::string_view(std::get<std::tuple_size_v<decltype(list)> - 1 - After>(list).name) ==
           "valid";
}

TEST(RecordLayoutOfParameterSets, HasExtensionsBehindValid) {
    static_assert(has_valid_before<h265_nal_vps, 0>());
    static_assert(has_valid_before<h265_nal_sps, 10>());
    static_assert(has_valid_before<h265_nal_pps, 10>());
}

TEST(RecordLayoutOfSlices, HasTheRestOfTheHeaderBehindValid) {
    static_assert(has_valid_before<h265_slice_segment_header, 25>());
}

TEST(RecordLayoutOfOtherStructures, EndsWithValid) {
    static_assert(has_valid_before<h265_profile_tier_level::layer_t, 0>());
    static_assert(has_valid_before<h265_profile_tier_level, 0>());
    static_assert(has_valid_before<h265_nal_sub_layer_hrd_parameters, 0>());
    static_assert(has_valid_before<h265_hrd_parameters, 0>());
    static_assert(has_valid_before<h265_scaling_list_data, 0>());
    static_assert(has_valid_before<h265_st_ref_pic_set, 0>());
    static_assert(has_valid_before<h265_vui_parameters, 0>());
    static_assert(has_valid_before<h265_ref_pic_lists_modification, 0>());
    static_assert(has_valid_before<h265_nal_sei_pic_timing, 0>());
    static_assert(has_valid_before<h265_nal_sei_buffering_period, 0>());
    static_assert(has_valid_before<h265_nal_sei_active_parameter_sets, 0>());
}

TEST(RecordLayoutOfALevel, HasTheListedFieldsInTheirOrderAndNoOthers) {
    static_assert(std::is_aggregate_v<h265_profile::level_decomposed>);
    expect_listed_fields<h265_profile::level_decomposed>();
}

TEST(RecordLayoutOfTheSeiReader, HasTheListedFieldsInTheirOrderAndNoOthers) {
    static_assert(std::is_trivially_copyable_v<h265_nal_sei_reader>);
    expect_listed_fields<h265_nal_sei_reader>();
}

}  // namespace
}  // namespace kovran
