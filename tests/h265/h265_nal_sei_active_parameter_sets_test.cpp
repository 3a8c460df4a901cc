#include <kovran/h265/h265_nal_sei_active_parameter_sets.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <vector>

#include "support/bit_writer.h"
#include "support/rbsp.h"
#include "support/same_fields.h"
#include "support/slice_record_fields.h"

namespace kovran {
namespace {

using values = std::vector<unsigned int>;
using vps_store = h2645_common_base_store<h265_nal_vps>;

// The record under the identifier is not valid, which does not matter here.
vps_store store_with(unsigned int id, bool vps_base_layer_internal_flag,
                     unsigned char vps_max_layers_minus1) {
    vps_store store;
    store[id].vps_base_layer_internal_flag = vps_base_layer_internal_flag;
    store[id].vps_max_layers_minus1 = vps_max_layers_minus1;
    return store;
}

h265_nal_sei_active_parameter_sets used_record() {
    h265_nal_sei_active_parameter_sets sets;
    sets.active_video_parameter_set_id = 3;
    sets.self_contained_cvs_flag = true;
    sets.no_parameter_set_update_flag = true;
    sets.num_sps_ids_minus1 = 1;
    sets.active_seq_parameter_set_id = {21, 22};
    sets.layer_sps_idx = {31, 32, 33};
    sets.valid = true;
    return sets;
}

TEST(H265NalSeiActiveParameterSets, ReadsTheSmallestMessage) {
    // active_video_parameter_set_id, two flags, num_sps_ids_minus1, active_seq_parameter_set_id[0]
    test::rbsp input{0b0000'0'0'1'1};
    vps_store store = store_with(0, /*vps_base_layer_internal_flag=*/true, 0);
    h265_nal_sei_active_parameter_sets sets;
    EXPECT_TRUE(sets.parse(input.reader, store));
    EXPECT_EQ(sets.active_video_parameter_set_id, 0);
    EXPECT_FALSE(sets.self_contained_cvs_flag);
    EXPECT_FALSE(sets.no_parameter_set_update_flag);
    EXPECT_EQ(sets.num_sps_ids_minus1, 0U);
    EXPECT_EQ(sets.active_seq_parameter_set_id, values{0});
    EXPECT_EQ(sets.layer_sps_idx, values{0});
    EXPECT_TRUE(sets.valid);
    EXPECT_EQ(input.reader.bit_position(), 8U);
}

TEST(H265NalSeiActiveParameterSets, ReadsEveryElement) {
    test::bit_writer bits;
    bits.u<4>(15).u<1>(1).u<1>(0);
    bits.ue(2).ue(7).ue(0).ue(15);  // num_sps_ids_minus1, active_seq_parameter_set_id
    bits.ue(1).ue(2);               // layer_sps_idx[1], [2]
    const std::size_t size = bits.size();
    bits.u<8>(0xFF);
    test::rbsp input{bits.bytes()};
    vps_store store = store_with(15, /*vps_base_layer_internal_flag=*/true, 2);
    h265_nal_sei_active_parameter_sets sets;
    EXPECT_TRUE(sets.parse(input.reader, store));
    EXPECT_EQ(sets.active_video_parameter_set_id, 15);
    EXPECT_TRUE(sets.self_contained_cvs_flag);
    EXPECT_FALSE(sets.no_parameter_set_update_flag);
    EXPECT_EQ(sets.num_sps_ids_minus1, 2U);
    EXPECT_EQ(sets.active_seq_parameter_set_id, (values{7, 0, 15}));
    EXPECT_EQ(sets.layer_sps_idx, (values{0, 1, 2}));
    EXPECT_TRUE(sets.valid);
    EXPECT_EQ(input.reader.bit_position(), size);
}

TEST(H265NalSeiActiveParameterSets, TellsTheTwoFlagsApart) {
    vps_store store = store_with(0, /*vps_base_layer_internal_flag=*/true, 0);
    h265_nal_sei_active_parameter_sets sets;
    test::rbsp first{0b0000'1'0'1'1};
    EXPECT_TRUE(sets.parse(first.reader, store));
    EXPECT_TRUE(sets.self_contained_cvs_flag);
    EXPECT_FALSE(sets.no_parameter_set_update_flag);
    test::rbsp second{0b0000'0'1'1'1};
    EXPECT_TRUE(sets.parse(second.reader, store));
    EXPECT_FALSE(sets.self_contained_cvs_flag);
    EXPECT_TRUE(sets.no_parameter_set_update_flag);
}

TEST(H265NalSeiActiveParameterSets, ReadsTheBaseLayerIndexOfAnExternalBaseLayer) {
    test::bit_writer bits;
    bits.u<4>(0).u<2>(0).ue(0).ue(0);
    bits.ue(4).ue(5).ue(6);  // layer_sps_idx
    test::rbsp input{bits.bytes()};
    vps_store store = store_with(0, /*vps_base_layer_internal_flag=*/false, 2);
    h265_nal_sei_active_parameter_sets sets;
    EXPECT_TRUE(sets.parse(input.reader, store));
    EXPECT_EQ(sets.layer_sps_idx, (values{4, 5, 6}));
    EXPECT_EQ(input.reader.bit_position(), bits.size());
}

TEST(H265NalSeiActiveParameterSets, ReadsAnIndexForTheLastOf64Layers) {
    test::bit_writer bits;
    bits.u<4>(0).u<2>(0).ue(0).ue(0);
    for (unsigned int i = 1; i < 64; ++i) {
        bits.ue(i);
    }
    test::rbsp input{bits.bytes()};
    vps_store store = store_with(0, /*vps_base_layer_internal_flag=*/true, 63);
    h265_nal_sei_active_parameter_sets sets;
    EXPECT_TRUE(sets.parse(input.reader, store));
    ASSERT_EQ(sets.layer_sps_idx.size(), 64U);
    for (unsigned int i = 0; i < 64; ++i) {
        EXPECT_EQ(sets.layer_sps_idx[i], i);
    }
    EXPECT_EQ(input.reader.bit_position(), bits.size());
}

TEST(H265NalSeiActiveParameterSets, BoundsTheLayersOfAVpsMadeByTheHost) {
    const test::bit_writer bits = test::bit_writer().u<4>(0).u<2>(0).ue(0).ue(9);
    test::rbsp accepted{bits.bytes()};
    vps_store store = store_with(0, /*vps_base_layer_internal_flag=*/true, 127);
    h265_nal_sei_active_parameter_sets sets;
    EXPECT_TRUE(sets.parse(accepted.reader, store));
    EXPECT_EQ(sets.layer_sps_idx.size(), 128U);

    test::rbsp rejected{bits.bytes()};
    store = store_with(0, /*vps_base_layer_internal_flag=*/true, 128);
    sets = used_record();
    EXPECT_FALSE(sets.parse(rejected.reader, store));
    EXPECT_FALSE(sets.valid);
    EXPECT_EQ(sets.active_seq_parameter_set_id, values{9});
    EXPECT_EQ(sets.layer_sps_idx, (values{31, 32, 33}));
    EXPECT_EQ(rejected.reader.bit_position(), bits.size());
}

TEST(H265NalSeiActiveParameterSets, TakesUpTo128SpsIdentifiers) {
    test::bit_writer bits;
    bits.u<4>(0).u<2>(0).ue(127);
    for (unsigned int i = 0; i < 128; ++i) {
        bits.ue(1000 + i);
    }
    test::rbsp input{bits.bytes()};
    vps_store store = store_with(0, /*vps_base_layer_internal_flag=*/true, 0);
    h265_nal_sei_active_parameter_sets sets;
    EXPECT_TRUE(sets.parse(input.reader, store));
    ASSERT_EQ(sets.active_seq_parameter_set_id.size(), 128U);
    EXPECT_EQ(sets.active_seq_parameter_set_id[0], 1000U);
    EXPECT_EQ(sets.active_seq_parameter_set_id[127], 1127U);
    EXPECT_EQ(input.reader.bit_position(), bits.size());
}

TEST(H265NalSeiActiveParameterSets, RejectsMoreSpsIdentifiersButStoresTheirNumber) {
    for (const unsigned int num_sps_ids_minus1 : {128U, 1000000U, 0xFFFFFFFEU}) {
        test::bit_writer bits;
        bits.u<4>(0).u<1>(0).u<1>(1).ue(num_sps_ids_minus1);
        test::rbsp input{bits.bytes()};
        vps_store store = store_with(0, /*vps_base_layer_internal_flag=*/true, 0);
        h265_nal_sei_active_parameter_sets sets = used_record();
        EXPECT_FALSE(sets.parse(input.reader, store));
        h265_nal_sei_active_parameter_sets expected = used_record();
        expected.active_video_parameter_set_id = 0;
        expected.self_contained_cvs_flag = false;
        expected.num_sps_ids_minus1 = num_sps_ids_minus1;
        expected.valid = false;
        EXPECT_TRUE(test::same_fields(sets, expected)) << num_sps_ids_minus1;
        EXPECT_EQ(input.reader.bit_position(), bits.size());
    }
}

TEST(H265NalSeiActiveParameterSets, FailsWithoutTheVpsAndInsertsNone) {
    test::rbsp input{0b0101'1'1'1'1};
    vps_store store = store_with(4, /*vps_base_layer_internal_flag=*/true, 0);
    store[6] = store[4];
    h265_nal_sei_active_parameter_sets sets = used_record();
    EXPECT_FALSE(sets.parse(input.reader, store));
    h265_nal_sei_active_parameter_sets expected = used_record();
    expected.active_video_parameter_set_id = 5;
    expected.valid = false;
    EXPECT_TRUE(test::same_fields(sets, expected));
    EXPECT_EQ(input.reader.bit_position(), 4U);
    EXPECT_EQ(store.size(), 2U);
    EXPECT_FALSE(store.contains(5));
}

TEST(H265NalSeiActiveParameterSets, FailsWithAnEmptyStore) {
    test::rbsp input{0b0000'1'1'1'1};
    vps_store store;
    h265_nal_sei_active_parameter_sets sets;
    EXPECT_FALSE(sets.parse(input.reader, store));
    EXPECT_TRUE(store.empty());
}

TEST(H265NalSeiActiveParameterSets, GoesByTheIdentifierAndNotByTheActiveOne) {
    test::rbsp input{0b0001'0'0'1'1};
    vps_store store = store_with(1, /*vps_base_layer_internal_flag=*/true, 0);
    store[2].vps_max_layers_minus1 = 40;
    store.active_id = 2;
    h265_nal_sei_active_parameter_sets sets;
    EXPECT_TRUE(sets.parse(input.reader, store));
    EXPECT_EQ(sets.layer_sps_idx.size(), 1U);
    EXPECT_EQ(store.active_id, 2U);
    EXPECT_EQ(store.size(), 2U);
}

TEST(H265NalSeiActiveParameterSets, KeepsAndFillsArraysWhenParsedAgain) {
    test::bit_writer bits;
    bits.u<4>(0).u<2>(0).ue(0).ue(6);
    bits.ue(8);  // layer_sps_idx[1]
    test::rbsp shrinking{bits.bytes()};
    vps_store store = store_with(0, /*vps_base_layer_internal_flag=*/true, 1);
    h265_nal_sei_active_parameter_sets sets = used_record();
    EXPECT_TRUE(sets.parse(shrinking.reader, store));
    EXPECT_EQ(sets.active_seq_parameter_set_id, values{6});
    EXPECT_EQ(sets.layer_sps_idx, (values{31, 8}));

    store[0].vps_max_layers_minus1 = 2;
    test::rbsp growing{bits.ue(9).bytes()};
    EXPECT_TRUE(sets.parse(growing.reader, store));
    EXPECT_EQ(sets.layer_sps_idx, (values{31, 8, 9}));
}

TEST(H265NalSeiActiveParameterSets, ReadsNoLayerIndexOfASingleLayer) {
    test::rbsp input{0b0000'0'0'1'1, 0b010'00000};
    vps_store store = store_with(0, /*vps_base_layer_internal_flag=*/true, 0);
    h265_nal_sei_active_parameter_sets sets;
    EXPECT_TRUE(sets.parse(input.reader, store));
    EXPECT_EQ(sets.layer_sps_idx, values{0});
    EXPECT_EQ(input.reader.bit_position(), 8U);
}

}  // namespace
}  // namespace kovran
