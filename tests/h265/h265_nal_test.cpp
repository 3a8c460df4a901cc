#include <kovran/h265/h265_nal.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <type_traits>

namespace kovran {
namespace {
// Header digit groups, left to right: forbidden_zero_bit, nal_unit_type, nuh_layer_id,
// nuh_temporal_id_plus1.

h265_nal decoded(unsigned short header) {
    h265_nal nal;
    nal.decode_header(header);
    return nal;
}

h265_nal_unit_type unit_type(unsigned int value) {
    return static_cast<h265_nal_unit_type>(value);
}

TEST(H265Nal, HasItsFieldsInTheirOrderAndTypes) {
    static_assert(std::is_aggregate_v<h265_nal>);
    static_assert(std::is_same_v<decltype(h265_nal::nuh_layer_id), unsigned char>);
    static_assert(std::is_same_v<decltype(h265_nal::nuh_temporal_id_plus1), unsigned char>);
    static_assert(std::is_same_v<decltype(h265_nal::nal_unit_type), h265_nal_unit_type>);
    static_assert(std::is_same_v<decltype(h265_nal::valid), bool>);
    static_assert(offsetof(h265_nal, nuh_layer_id) == 0);
    static_assert(offsetof(h265_nal, nuh_temporal_id_plus1) == 1);
    static_assert(offsetof(h265_nal, nal_unit_type) == 4);
    static_assert(offsetof(h265_nal, valid) == 8);
    static_assert(sizeof(h265_nal) == 12);
}

TEST(H265Nal, IsZeroAndInvalidAtFirst) {
    const h265_nal nal;
    EXPECT_EQ(nal.nuh_layer_id, 0);
    EXPECT_EQ(nal.nuh_temporal_id_plus1, 0);
    EXPECT_EQ(nal.nal_unit_type, TRAIL_N);
    EXPECT_FALSE(nal.valid);
}

TEST(H265Nal, TakesTheHeaderOfAVideoParameterSetApart) {
    const h265_nal nal = decoded(0x4001);
    EXPECT_EQ(nal.nal_unit_type, VPS_NUT);
    EXPECT_EQ(nal.nuh_layer_id, 0);
    EXPECT_EQ(nal.nuh_temporal_id_plus1, 1);
    EXPECT_TRUE(nal.valid);
    EXPECT_EQ(nal.encode_header(), 0x4001U);
}

TEST(H265Nal, TakesEachFieldFromItsBits) {
    const h265_nal type_only = decoded(0b0'111111'000000'000);
    EXPECT_EQ(type_only.nal_unit_type, unit_type(63));
    EXPECT_EQ(type_only.nuh_layer_id, 0);
    EXPECT_EQ(type_only.nuh_temporal_id_plus1, 0);

    const h265_nal layer_only = decoded(0b0'000000'111111'000);
    EXPECT_EQ(layer_only.nal_unit_type, TRAIL_N);
    EXPECT_EQ(layer_only.nuh_layer_id, 63);
    EXPECT_EQ(layer_only.nuh_temporal_id_plus1, 0);

    const h265_nal temporal_id_only = decoded(0b0'000000'000000'111);
    EXPECT_EQ(temporal_id_only.nal_unit_type, TRAIL_N);
    EXPECT_EQ(temporal_id_only.nuh_layer_id, 0);
    EXPECT_EQ(temporal_id_only.nuh_temporal_id_plus1, 7);

    const h265_nal mixed = decoded(0b0'100111'010011'101);
    EXPECT_EQ(mixed.nal_unit_type, PREFIX_SEI_NUT);
    EXPECT_EQ(mixed.nuh_layer_id, 0b010011);
    EXPECT_EQ(mixed.nuh_temporal_id_plus1, 0b101);
}

TEST(H265Nal, AcceptsATemporalIdPlus1OfZero) {
    EXPECT_TRUE(decoded(0b0'000001'000000'000).valid);
}

TEST(H265Nal, TakesEveryHeaderApartAndPutsItTogetherAgain) {
    for (unsigned int header = 0; header <= 0x7FFF; ++header) {
        const h265_nal nal = decoded(static_cast<unsigned short>(header));
        ASSERT_TRUE(nal.valid) << header;
        ASSERT_EQ(nal.nal_unit_type, unit_type(header / 512)) << header;
        ASSERT_EQ(nal.nuh_layer_id, header % 512 / 8) << header;
        ASSERT_EQ(nal.nuh_temporal_id_plus1, header % 8) << header;
        ASSERT_EQ(nal.encode_header(), header);
    }
}

TEST(H265Nal, RejectsEveryHeaderWithASetForbiddenBitAndKeepsTheOtherFields) {
    for (unsigned int header = 0x8000; header <= 0xFFFF; ++header) {
        h265_nal nal = decoded(0b0'100001'000011'010);
        nal.decode_header(static_cast<unsigned short>(header));
        ASSERT_FALSE(nal.valid) << header;
        ASSERT_EQ(nal.nal_unit_type, SPS_NUT);
        ASSERT_EQ(nal.nuh_layer_id, 3);
        ASSERT_EQ(nal.nuh_temporal_id_plus1, 2);
        ASSERT_EQ(nal.encode_header(), 0xFFFFFFFF);
    }
}

TEST(H265Nal, EncodesAnInvalidHeaderAsAllOnes) {
    EXPECT_EQ(h265_nal().encode_header(), 0xFFFFFFFF);
    EXPECT_EQ((h265_nal{1, 1, VPS_NUT, false}).encode_header(), 0xFFFFFFFF);
}

TEST(H265Nal, IsValidAgainAfterTheNextGoodHeader) {
    h265_nal nal = decoded(0x8000);
    nal.decode_header(0x4201);
    EXPECT_TRUE(nal.valid);
    EXPECT_EQ(nal.nal_unit_type, SPS_NUT);
}

TEST(H265Nal, LetsFieldsOutOfRangeRunIntoTheirNeighbours) {
    EXPECT_EQ((h265_nal{0, 8, TRAIL_N, true}).encode_header(), 0b0'000000'000001'000U);
    EXPECT_EQ((h265_nal{64, 0, TRAIL_N, true}).encode_header(), 0b0'000001'000000'000U);
    EXPECT_EQ((h265_nal{0, 0, unit_type(64), true}).encode_header(), 0b1'000000'000000'000U);
    EXPECT_EQ((h265_nal{255, 255, TRAIL_N, true}).encode_header(), 0b11'111111'111U);
    EXPECT_EQ((h265_nal{0, 0, unit_type(0xFFFFFFFF), true}).encode_header(), 0xFFFFFE00);
}

TEST(H265NalUnitType, HoldsEvery32BitValue) {
    static_assert(std::is_same_v<std::underlying_type_t<h265_nal_unit_type>, unsigned int>);
    static_assert(std::is_convertible_v<h265_nal_unit_type, unsigned int>);
    static_assert(sizeof(h265_nal_unit_type) == 4);
}

TEST(H265NalUnitType, NamesItsValues) {
    static_assert(TRAIL_N == 0 && TRAIL_R == 1);
    static_assert(TSA_N == 2 && TSA_R == 3);
    static_assert(STSA_N == 4 && STSA_R == 5);
    static_assert(RADL_N == 6 && RADL_R == 7);
    static_assert(RASL_N == 8 && RASL_R == 9);
    static_assert(RSV_VCL_N10 == 10 && RSV_VCL_R11 == 11);
    static_assert(RSV_VCL_N12 == 12 && RSV_VCL_R13 == 13);
    static_assert(RSV_VCL_N14 == 14 && RSV_VCL_R15 == 15);
    static_assert(BLA_W_LP == 16 && BLA_W_RADL == 17 && BLA_N_LP == 18);
    static_assert(IDR_W_RADL == 19 && IDR_N_LP == 20);
    static_assert(CRA_NUT == 21);
    static_assert(RSV_IRAP_VCL22 == 22 && RSV_IRAP_VCL23 == 23);
    static_assert(RSV_VCL24 == 24 && RSV_VCL25 == 25 && RSV_VCL26 == 26 && RSV_VCL27 == 27);
    static_assert(RSV_VCL28 == 28 && RSV_VCL29 == 29 && RSV_VCL30 == 30 && RSV_VCL31 == 31);
    static_assert(VPS_NUT == 32 && SPS_NUT == 33 && PPS_NUT == 34);
    static_assert(AUD_NUT == 35 && EOS_NUT == 36 && EOB_NUT == 37 && FD_NUT == 38);
    static_assert(PREFIX_SEI_NUT == 39 && SUFFIX_SEI_NUT == 40);
}

TEST(H265NalUnitTypeStr, HasARowForEveryNamedType) {
    static_assert(std::is_same_v<decltype(h265_nal_unit_type_str), const char* const[41]>);

    const char* const rows[41] = {
        // clang-format off
        "TRAIL_N, Coded slice segment of a non-TSA, non-STSA trailing picture, slice_segment_layer_rbsp()",
        "TRAIL_R, Coded slice segment of a non-TSA, non-STSA trailing picture, slice_segment_layer_rbsp()",
        "TSA_N, Coded slice segment of a TSA picture, slice_segment_layer_rbsp()",
        "TSA_R, Coded slice segment of a TSA picture, slice_segment_layer_rbsp()",
        "STSA_N, Coded slice segment of an STSA picture, slice_segment_layer_rbsp()",
        "STSA_R, Coded slice segment of an STSA picture, slice_segment_layer_rbsp()",
        "RADL_N, Coded slice segment of a RADL picture, slice_segment_layer_rbsp()",
        "RADL_R, Coded slice segment of a RADL picture, slice_segment_layer_rbsp()",
        "RASL_N, Coded slice segment of a RASL picture, slice_segment_layer_rbsp()",
        "RASL_R, Coded slice segment of a RASL picture, slice_segment_layer_rbsp()",
        "RSV_VCL_N10, Reserved non-IRAP SLNR VCL NAL unit types",
        "RSV_VCL_R11, Reserved non-IRAP sub-layer reference VCL NAL unit types",
        "RSV_VCL_N12, Reserved non-IRAP SLNR VCL NAL unit types",
        "RSV_VCL_R13, Reserved non-IRAP sub-layer reference VCL NAL unit types",
        "RSV_VCL_N14, Reserved non-IRAP SLNR VCL NAL unit types",
        "RSV_VCL_R15, Reserved non-IRAP sub-layer reference VCL NAL unit types",
        "BLA_W_LP, Coded slice segment of a BLA picture, slice_segment_layer_rbsp()",
        "BLA_W_RADL, Coded slice segment of a BLA picture, slice_segment_layer_rbsp()",
        "BLA_N_LP, Coded slice segment of a BLA picture, slice_segment_layer_rbsp()",
        "IDR_W_RADL, Coded slice segment of an IDR picture, slice_segment_layer_rbsp()",
        "IDR_N_LP, Coded slice segment of an IDR picture, slice_segment_layer_rbsp()",
        "CRA_NUT, Coded slice segment of a CRA picture, slice_segment_layer_rbsp()",
        "Reserved IRAP VCL NAL unit type",
        "Reserved IRAP VCL NAL unit type",
        "Reserved non-IRAP VCL NAL unit types",
        "Reserved non-IRAP VCL NAL unit types",
        "Reserved non-IRAP VCL NAL unit types",
        "Reserved non-IRAP VCL NAL unit types",
        "Reserved non-IRAP VCL NAL unit types",
        "Reserved non-IRAP VCL NAL unit types",
        "Reserved non-IRAP VCL NAL unit types",
        "Reserved non-IRAP VCL NAL unit types",
        "VPS_NUT, Video parameter set, video_parameter_set_rbsp()",
        "SPS_NUT, Sequence parameter set, seq_parameter_set_rbsp()",
        "PPS_NUT, Picture parameter set, pic_parameter_set_rbsp()",
        "AUD_NUT, Access unit delimiter, access_unit_delimiter_rbsp()",
        "EOS_NUT, End of sequence, end_of_seq_rbsp()",
        "EOB_NUT, End of bitstream, end_of_bitstream_rbsp()",
        "FD_NUT, Filler data, filler_data_rbsp()",
        "PREFIX_SEI_NUT, Supplemental enhancement information, sei_rbsp()",
        "SUFFIX_SEI_NUT, Supplemental enhancement information, sei_rbsp()",
        // clang-format on
    };
    for (unsigned int type = 0; type < 41; ++type) {
        EXPECT_STREQ(h265_nal_unit_type_str[type], rows[type]) << type;
    }
}

TEST(H265NalUnitTypeStr, RowsOfEqualTextShareOneString) {
    const auto group = [](unsigned int type) {
        return type == 23 ? 22 : type > 24 && type <= 31 ? 24 : type;
    };
    for (unsigned int a = 0; a < 41; ++a) {
        for (unsigned int b = 0; b < 41; ++b) {
            EXPECT_EQ(h265_nal_unit_type_str[a] == h265_nal_unit_type_str[b], group(a) == group(b))
                << a << " and " << b;
        }
    }
}

TEST(H265NalUnitTypeToStr, GivesTheRowOfTheTable) {
    for (unsigned int type = 0; type < 41; ++type) {
        EXPECT_EQ(h265_nal_unit_type_to_str(unit_type(type)), h265_nal_unit_type_str[type]) << type;
    }
    EXPECT_EQ(h265_nal_unit_type_to_str(RSV_IRAP_VCL23), h265_nal_unit_type_to_str(RSV_IRAP_VCL22));
}

TEST(H265NalUnitTypeToStr, GivesAnEmptyStringForTypesWithoutName) {
    for (unsigned int type = 41; type < 64; ++type) {
        EXPECT_STREQ(h265_nal_unit_type_to_str(unit_type(type)), "") << type;
    }
    for (const unsigned int type : {64U, 0x7FFFFFFFU, 0x80000000U, 0xFFFFFFFFU}) {
        EXPECT_STREQ(h265_nal_unit_type_to_str(unit_type(type)), "") << type;
    }
}

}  // namespace
}  // namespace kovran
