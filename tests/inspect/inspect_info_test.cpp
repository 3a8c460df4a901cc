#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <cstddef>
#include <cstdint>
#include <sstream>
#include <string>
#include <vector>

#include "annex_b_unit.h"
#include "byte_string.h"
#include "program.h"
#include "readings.h"
#include "support/bit_writer.h"
#include "support/parameter_sets.h"
#include "temporary_folder.h"

namespace kovran::test {
namespace {

std::string info_of(const std::string& name) {
    const outcome result = run({"info", stream_path(name)});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "");
    return result.out;
}

// The line that starts with this word, without it.
std::string fact(const std::string& info, const std::string& name) {
    const std::size_t start = ('\n' + info).find('\n' + name + ' ');
    if (start == std::string::npos) {
        return "no " + name;
    }
    const std::size_t begin = info.find_first_not_of(' ', start + name.size());
    return info.substr(begin, info.find('\n', begin) - begin);
}

// --level 6.2, 178x146, 25 pictures per second, --range pc, --colorprim bt2020,
// --transfer bt2020-10, four pictures.
TEST(InspectInfo, ShowsAStreamWithColours) {
    EXPECT_EQ(info_of("kvazaar_vui_full"),
              "profile       Main, Main tier, level 6.2\n"
              "size          184 x 152, cropped to 178 x 146\n"
              "format        4:2:0, 8 bit luma, 8 bit chroma\n"
              "rate          25 pictures per second (25/1)\n"
              "colour        full range; primaries BT.2020; BT.2100; transfer BT.2020 10 bit; "
              "matrix BT.2020 non-constant luminance\n"
              "NAL units     12: IDR_W_RADL 1, PPS_NUT 1, PREFIX_SEI_NUT 1, SPS_NUT 1, "
              "SUFFIX_SEI_NUT 4, TRAIL_R 3, VPS_NUT 1\n"
              "slices        B 1, I 1, P 2\n"
              "pictures      4\n"
              "IRAP          1: picture 0 at 273\n"
              "SEI           decoded_picture_hash 4, user_data_unregistered 1\n"
              "encoder       Kvazaar HEVC Encoder v. 2.3.2\n"
              "rules         standard\n"
              "faults        none\n");
}

// Delimiters, repeated parameter sets, two IRAP pictures, nine types of messages.
TEST(InspectInfo, ShowsAStreamWithMessages) {
    EXPECT_EQ(
        info_of("sei_everything"),
        "profile       Main 10, Main tier, level 2\n"
        "size          176 x 144\n"
        "format        4:2:0, 10 bit luma, 10 bit chroma\n"
        "rate          25 pictures per second (25/1)\n"
        "colour        not given\n"
        "NAL units     51: AUD_NUT 8, CRA_NUT 1, IDR_N_LP 1, PPS_NUT 2, "
        "PREFIX_SEI_NUT 21, SPS_NUT 2, SUFFIX_SEI_NUT 8, TRAIL_N 2, TRAIL_R 4, "
        "VPS_NUT 2\n"
        "slices        B 4, I 2, P 2\n"
        "pictures      8\n"
        "IRAP          2: picture 0 at 2672, 4 at 7736; every 4 pictures\n"
        "SEI           active_parameter_sets 2, alternative_transfer_characteristics 2, "
        "buffering_period 2, content_light_level_info 2, decoded_picture_hash 8, "
        "mastering_display_colour_volume 2, pic_timing 8, recovery_point 1, "
        "user_data_unregistered 2\n"
        "HDR10         G 0.1700 0.7970, B 0.1310 0.0460, R 0.7080 0.2920, white point 0.3127 "
        "0.3290; 0.0050 to 4000 cd/m2; content light level 4000 cd/m2, of a picture on average "
        "900 cd/m2\n"
        "transfer      SMPTE ST 2084, PQ preferred\n"
        "encoder       x265 (build 199) - 3.5+1-f0c1022b6:[Linux][GCC 12.2.0][64 bit] 10bit\n"
        "rules         standard\n"
        "faults        none\n");
}

// Tiles in slices of their own, timing information in the VPS only.
TEST(InspectInfo, ShowsAStreamWithSlices) {
    EXPECT_EQ(info_of("svt_tiles"),
              "profile       Main, Main tier, level 3.1\n"
              "size          832 x 480\n"
              "format        4:2:0, 8 bit luma, 8 bit chroma\n"
              "rate          25 pictures per second (1638400/65536)\n"
              "colour        not given\n"
              "NAL units     22: EOS_NUT 1, IDR_W_RADL 6, PPS_NUT 1, SPS_NUT 1, TRAIL_N 6, "
              "TRAIL_R 6, VPS_NUT 1\n"
              "slices        I 6, P 12\n"
              "pictures      3\n"
              "IRAP          1: picture 0 at 92\n"
              "SEI           none\n"
              "rules         standard\n"
              "faults        none\n");
}

// Of six bytes each, with first_slice_segment_in_pic_flag and a PPS that is not there.
std::string irap_fact(const std::string& pictures) {
    std::string stream;
    for (const char picture : pictures) {
        stream += bytes(picture == 'I' ? "000001 2801a0" : "000001 0201e0");
    }
    return fact(program({"info", "-"}).input(stream).run().out, "IRAP");
}

TEST(InspectInfo, TellsHowFarIrapPicturesAreApart) {
    EXPECT_EQ(irap_fact("II"), "2: picture 0 at 3, 1 at 9; every picture");
    EXPECT_EQ(irap_fact("IPI"), "2: picture 0 at 3, 2 at 15; every 2 pictures");
    EXPECT_EQ(irap_fact("IPIIPI"),
              "4: picture 0 at 3, 2 at 15, 3 at 21, 5 at 33; every 1 to 2 pictures");
}

TEST(InspectInfo, TellsTheShortestAndTheLongestDistanceWhereverTheyAre) {
    EXPECT_EQ(irap_fact("IIPPI"), "3: picture 0 at 3, 1 at 9, 4 at 27; every 1 to 3 pictures");
    EXPECT_EQ(irap_fact("IPPII"), "3: picture 0 at 3, 3 at 21, 4 at 27; every 1 to 3 pictures");
    EXPECT_EQ(irap_fact("IPIPPPIPI"),
              "4: picture 0 at 3, 2 at 15, 6 at 39, 8 at 51; every 2 to 4 pictures");
    EXPECT_EQ(irap_fact("IPPIIPPI"),
              "4: picture 0 at 3, 3 at 21, 4 at 27, 7 at 45; every 1 to 3 pictures");
    // The pictures before the first and behind the last one are no distance.
    EXPECT_EQ(irap_fact("PPPPIPIPPPPP"), "2: picture 4 at 27, 6 at 39; every 2 pictures");
}

TEST(InspectInfo, ListsTheFirstEightIrapPictures) {
    const std::string seven = "picture 0 at 3, 1 at 9, 2 at 15, 3 at 21, 4 at 27, 5 at 33, 6 at 39";
    EXPECT_EQ(irap_fact("IIIIIII"), "7: " + seven + "; every picture");
    EXPECT_EQ(irap_fact("IIIIIIII"), "8: " + seven + ", 7 at 45; every picture");
    EXPECT_EQ(irap_fact("IIIIIIIII"), "9: " + seven + ", 7 at 45, ...; every picture");
    EXPECT_EQ(irap_fact("IIIIIIIIIPPI"), "10: " + seven + ", 7 at 45, ...; every 1 to 3 pictures");
}

std::string unit_of_type(unsigned int type, const std::string& payload) {
    return bytes("000001") + static_cast<char>(type << 1) + bytes("01") + payload;
}

outcome info_of_bytes(const std::string& stream) {
    return program({"info", "-"}).input(stream).run();
}

// With first_slice_segment_in_pic_flag 1, no_output_of_prior_pics_flag 0 in IRAP pictures, and the
// identifier of a PPS that is not there.
TEST(InspectInfo, CountsThePicturesOfEachTypeOfSlice) {
    for (unsigned int type = 0; type < 64; ++type) {
        SCOPED_TRACE(type);
        const bool irap = type >= 16 && type <= 21;
        const bool slice = type <= 9 || irap;
        const bool message = type == 39 || type == 40;
        const bool parameter_set = type >= 32 && type <= 35;
        if (message || parameter_set) {
            continue;
        }
        const outcome result = info_of_bytes(unit_of_type(type, bytes(irap ? "a0" : "e0")));
        EXPECT_EQ(result.status, slice ? 1 : 0);
        EXPECT_EQ(fact(result.out, "slices"), slice ? "unreadable 1" : "none");
        EXPECT_EQ(fact(result.out, "pictures"), slice ? "1" : "0");
        EXPECT_EQ(fact(result.out, "IRAP"), irap ? "1: picture 0 at 3" : "0");
        EXPECT_EQ(fact(result.out, "faults"), slice ? "1" : "none");
    }
}

TEST(InspectInfo, CountsNoPictureForAFurtherSegment) {
    const outcome result = info_of_bytes(bytes("000001 2801a0 000001 280120 000001 280120"));
    EXPECT_EQ(fact(result.out, "slices"), "unreadable 3");
    EXPECT_EQ(fact(result.out, "pictures"), "1");
    EXPECT_EQ(fact(result.out, "IRAP"), "1: picture 0 at 3");
}

// Two coding tree blocks, of which the second one has a slice segment of its own.
TEST(InspectInfo, TellsDependentSegmentsFromSlices) {
    sps_syntax sps;
    sps.picture_size = bit_writer().ue(128).ue(64);
    pps_syntax pps;
    pps.slice_header = bit_writer().u<1>(1).u<1>(0).u<3>(0).u<1>(0).u<1>(0);
    const bit_writer first = bit_writer().u<1>(1).u<1>(0).ue(0).ue(2).se(0).trailing_bits();
    const bit_writer dependent = bit_writer().u<1>(0).u<1>(0).ue(0).u<1>(1).u<1>(1).trailing_bits();
    const bit_writer second =
        bit_writer().u<1>(0).u<1>(0).ue(0).u<1>(0).u<1>(1).ue(2).se(0).trailing_bits();
    const std::string sets = annex_b_unit(VPS_NUT, vps_syntax().rbsp()) +
                             annex_b_unit(SPS_NUT, sps.rbsp()) + annex_b_unit(PPS_NUT, pps.rbsp());
    const std::string picture = annex_b_unit(IDR_W_RADL, first);
    const outcome with_dependent =
        info_of_bytes(sets + picture + annex_b_unit(IDR_W_RADL, dependent));
    EXPECT_EQ(with_dependent.status, 0) << with_dependent.err;
    EXPECT_EQ(fact(with_dependent.out, "slices"), "I 1, dependent 1");
    EXPECT_EQ(fact(with_dependent.out, "pictures"), "1");
    const outcome with_slice = info_of_bytes(sets + picture + annex_b_unit(IDR_W_RADL, second));
    EXPECT_EQ(fact(with_slice.out, "slices"), "I 2");
    EXPECT_EQ(fact(with_slice.out, "pictures"), "1");
}

TEST(InspectInfo, CountsEveryMessageByItsName) {
    const outcome result =
        info_of_bytes(bytes("000001 4e01 0301ff 0300 6300 80 000001 5001 9201c0 0301ff 80"));
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(fact(result.out, "SEI"),
              "coded_region_completion 1, filler_payload 3, payload_type_99 1");
}

TEST(InspectInfo, CountsTheFaultsOfBytesThatAreNoUnit) {
    // Two bytes before the first unit, whose temporal identifier is none, which has 00 00 00
    // inside, and no stop bit behind pic_type.
    const outcome result = info_of_bytes(bytes("aabb 000001 4600 00000240"));
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(fact(result.out, "faults"), "4");
    EXPECT_EQ(fact(result.out, "NAL units"), "1: AUD_NUT 1");
}

// ---- What the first SPS says

std::string info_of_sets(const sps_syntax& sps, const vps_syntax& vps = {}) {
    return info_of_bytes(annex_b_unit(VPS_NUT, vps.rbsp()) + annex_b_unit(SPS_NUT, sps.rbsp())).out;
}

TEST(InspectInfo, TellsProfileTierAndLevel) {
    sps_syntax sps;
    sps.profile_tier_level = bit_writer().u<2>(0).u<1>(1).u<5>(2).u<32>(1U << (31 - 2)).u<4>(0x9);
    sps.profile_tier_level.u<43>(0).u<1>(0).u<8>(156);
    EXPECT_EQ(fact(info_of_sets(sps), "profile"), "Main 10, High tier, level 5.2");
}

std::string profile_of(const std::string& name) {
    const std::string all = fact(info_of(name), "profile");
    return all.substr(0, all.find(','));
}

// By the options that the encoders were given.
TEST(InspectInfo, TellsTheProfileThatTheFlagsStandFor) {
    EXPECT_EQ(profile_of("main422_10intra"), "Main 4:2:2 10 Intra");
    EXPECT_EQ(profile_of("main10_still444"), "Main 4:4:4 Still Picture");
    EXPECT_EQ(profile_of("main444_12_cqpoff"), "Main 4:4:4 12");
    EXPECT_EQ(profile_of("more_tiles_wpp"), "High Throughput 4:4:4 16 Intra");
}

// Profile 4 of 16 bit pictures that are not intra only; profile 31; profile 1 of another space.
TEST(InspectInfo, TellsTheNumberOfAProfileThatTheFlagsDoNotStandFor) {
    const auto profile_with = [](unsigned int space, unsigned int profile) {
        sps_syntax sps;
        sps.profile_tier_level = bit_writer().u(2, space).u<1>(0).u(5, profile);
        sps.profile_tier_level.u<32>(0).u<4>(0).u<43>(0).u<1>(0).u<8>(93);
        return fact(info_of_sets(sps), "profile");
    };
    EXPECT_EQ(profile_with(0, 4), "format range extensions, Main tier, level 3.1");
    EXPECT_EQ(profile_with(0, 31), "reserved, Main tier, level 3.1");
    EXPECT_EQ(profile_with(1, 1), "reserved, Main tier, level 3.1");
}

TEST(InspectInfo, TellsTheBitDepthsOfLumaAndChroma) {
    sps_syntax sps;
    sps.bit_depths = bit_writer().ue(2).ue(4);
    EXPECT_EQ(fact(info_of_sets(sps), "format"), "4:2:0, 10 bit luma, 12 bit chroma");
}

// Of 128 x 96 samples: 1 and 2 units are cropped at the sides, 3 and 5 above and below.
std::string cropped_size(const bit_writer& chroma_format) {
    sps_syntax sps;
    sps.chroma_format = chroma_format;
    sps.picture_size = bit_writer().ue(128).ue(96);
    sps.conformance_window = bit_writer().u<1>(1).ue(1).ue(2).ue(3).ue(5);
    return fact(info_of_sets(sps), "size");
}

// Table 6-1.
TEST(InspectInfo, CropsInTheUnitsOfEachChromaFormat) {
    EXPECT_EQ(cropped_size(bit_writer().ue(0)), "128 x 96, cropped to 125 x 88");
    EXPECT_EQ(cropped_size(bit_writer().ue(1)), "128 x 96, cropped to 122 x 80");
    EXPECT_EQ(cropped_size(bit_writer().ue(2)), "128 x 96, cropped to 122 x 88");
    EXPECT_EQ(cropped_size(bit_writer().ue(3).u<1>(0)), "128 x 96, cropped to 125 x 88");
    EXPECT_EQ(cropped_size(bit_writer().ue(3).u<1>(1)), "128 x 96, cropped to 125 x 88");
}

TEST(InspectInfo, TellsOfAWindowThatLeavesNothing) {
    const auto size_with = [](unsigned int left, unsigned int right, unsigned int top,
                              unsigned int bottom) {
        sps_syntax sps;
        sps.picture_size = bit_writer().ue(128).ue(96);
        sps.conformance_window = bit_writer().u<1>(1).ue(left).ue(right).ue(top).ue(bottom);
        return fact(info_of_sets(sps), "size");
    };
    const std::string nothing = "128 x 96, with a conformance window that leaves nothing";
    EXPECT_EQ(size_with(33, 30, 20, 27), "128 x 96, cropped to 2 x 2");
    EXPECT_EQ(size_with(33, 31, 20, 27), nothing);
    EXPECT_EQ(size_with(33, 30, 20, 28), nothing);
    // The sums are more than 32 bits hold, by 1.
    EXPECT_EQ(size_with(0xFFFFFFFE, 3, 0, 0), nothing);
    EXPECT_EQ(size_with(0, 0, 0xFFFFFFFE, 3), nothing);
}

// VUI parameters: video_signal_type_present_flag and what depends on it, then field_seq_flag with
// frame_field_info_present_flag, then vui_timing_info_present_flag and what depends on it.
bit_writer vui(const bit_writer& signal_type, bool fields, const bit_writer& timing) {
    bit_writer all = bit_writer().u<1>(1).u<2>(0);
    append(all, signal_type).u<2>(0);
    all.u<2>(fields ? 3 : 0).u<1>(0);
    return append(all, timing).u<1>(0);
}

bit_writer no_timing() {
    return bit_writer().u<1>(0);
}

bit_writer timing(std::uint32_t num_units_in_tick, std::uint32_t time_scale) {
    return bit_writer().u<1>(1).u<32>(num_units_in_tick).u<32>(time_scale).u<1>(0);
}

// VPS 1.
vps_syntax other_vps_with(const bit_writer& timing_of_vps) {
    vps_syntax vps;
    vps.header = bit_writer().u<4>(1).u<1>(1).u<1>(1).u<6>(0).u<3>(0).u<1>(1).u<16>(0xFFFF);
    vps.timing_info = timing_of_vps;
    return vps;
}

std::string rate_of(const bit_writer& timing_of_vui, const bit_writer& timing_of_vps,
                    bool fields = false) {
    sps_syntax sps;
    sps.vui = vui(bit_writer().u<1>(0), fields, timing_of_vui);
    vps_syntax vps;
    vps.timing_info = timing_of_vps;
    return fact(info_of_sets(sps, vps), "rate");
}

TEST(InspectInfo, TakesTheRateFromTheVuiBeforeTheVps) {
    const bit_writer of_vui = timing(1001, 30000).u<1>(0);  // without HRD parameters
    const bit_writer of_vps = timing(1, 50).ue(0);
    EXPECT_EQ(rate_of(of_vui, of_vps), "29.97 pictures per second (30000/1001)");
    EXPECT_EQ(rate_of(of_vui, no_timing()), "29.97 pictures per second (30000/1001)");
    EXPECT_EQ(rate_of(no_timing(), of_vps), "50 pictures per second (50/1)");
    EXPECT_EQ(rate_of(no_timing(), no_timing()), "not given");
    vps_syntax vps;
    vps.timing_info = of_vps;
    EXPECT_EQ(fact(info_of_sets({}, vps), "rate"), "50 pictures per second (50/1)");
}

// SPS 0 names VPS 1, which comes second.
TEST(InspectInfo, TakesTheRateFromTheVpsThatTheSpsNames) {
    vps_syntax vps;
    vps.timing_info = timing(1, 50).ue(0);
    sps_syntax sps;
    sps.header = bit_writer().u<4>(1).u<3>(0).u<1>(1);
    const std::string first = annex_b_unit(VPS_NUT, vps.rbsp());
    const std::string second = annex_b_unit(VPS_NUT, other_vps_with(timing(1, 60).ue(0)).rbsp());
    const std::string names_1 = annex_b_unit(SPS_NUT, sps.rbsp());
    EXPECT_EQ(fact(info_of_bytes(first + second + names_1).out, "rate"),
              "60 pictures per second (60/1)");
    EXPECT_EQ(fact(info_of_bytes(first + names_1).out, "rate"), "not given");
    const std::string again = annex_b_unit(VPS_NUT, other_vps_with(timing(1, 70).ue(0)).rbsp());
    EXPECT_EQ(fact(info_of_bytes(second + names_1 + again).out, "rate"),
              "60 pictures per second (60/1)");
}

TEST(InspectInfo, CountsFieldsWhereThePicturesAreFields) {
    const bit_writer of_vui = timing(1001, 60000).u<1>(0);
    const bit_writer of_vps = timing(1, 50).ue(0);
    EXPECT_EQ(rate_of(of_vui, of_vps, true), "59.9401 fields per second (60000/1001)");
    EXPECT_EQ(rate_of(no_timing(), of_vps, true), "50 fields per second (50/1)");
}

TEST(InspectInfo, TakesAZeroInTheTimingAsNone) {
    const bit_writer of_vps = timing(1, 50).ue(0);
    EXPECT_EQ(rate_of(timing(0, 25).u<1>(0), of_vps), "50 pictures per second (50/1)");
    EXPECT_EQ(rate_of(timing(1, 0).u<1>(0), of_vps), "50 pictures per second (50/1)");
    const std::string unknown = "unknown: the tick or the time scale is 0";
    EXPECT_EQ(rate_of(timing(0, 25).u<1>(0), no_timing()), unknown);
    EXPECT_EQ(rate_of(no_timing(), timing(0, 25).ue(0)), unknown);
    EXPECT_EQ(rate_of(no_timing(), timing(1, 0).ue(0)), unknown);
}

std::string colour_of(const bit_writer& signal_type) {
    sps_syntax sps;
    sps.vui = vui(signal_type, /*fields=*/false, no_timing());
    return fact(info_of_sets(sps), "colour");
}

TEST(InspectInfo, TellsTheColours) {
    EXPECT_EQ(fact(info_of_sets({}), "colour"), "not given");
    EXPECT_EQ(colour_of(bit_writer().u<1>(0)), "not given");
    EXPECT_EQ(colour_of(bit_writer().u<1>(1).u<3>(5).u<1>(0).u<1>(0)), "limited range");
    EXPECT_EQ(colour_of(bit_writer().u<1>(1).u<3>(5).u<1>(1).u<1>(0)), "full range");
    EXPECT_EQ(
        colour_of(bit_writer().u<1>(1).u<3>(5).u<1>(1).u<1>(1).u<8>(8).u<8>(9).u<8>(10)),
        "full range; primaries generic film; transfer logarithmic, 100:1; matrix BT.2020 constant "
        "luminance");
    EXPECT_EQ(colour_of(bit_writer().u<1>(1).u<3>(5).u<1>(0).u<1>(1).u<8>(0).u<8>(3).u<8>(255)),
              "limited range; primaries reserved; transfer reserved; matrix reserved");
}

TEST(InspectInfo, TellsOfTheFirstParameterSets) {
    vps_syntax first_vps;
    first_vps.timing_info = timing(1, 50).ue(0);
    const vps_syntax other_vps = other_vps_with(timing(1, 60).ue(0));
    sps_syntax other_sps;
    other_sps.sps_seq_parameter_set_id = bit_writer().ue(1);
    other_sps.picture_size = bit_writer().ue(128).ue(96);
    const outcome result = info_of_bytes(
        annex_b_unit(VPS_NUT, first_vps.rbsp()) + annex_b_unit(VPS_NUT, other_vps.rbsp()) +
        annex_b_unit(SPS_NUT, sps_syntax().rbsp()) + annex_b_unit(SPS_NUT, other_sps.rbsp()));
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(fact(result.out, "rate"), "50 pictures per second (50/1)");
    EXPECT_EQ(fact(result.out, "size"), "64 x 64");
    EXPECT_EQ(fact(result.out, "NAL units"), "4: SPS_NUT 2, VPS_NUT 2");
}

TEST(InspectInfo, CountsUnitsOfHigherLayers) {
    const std::string info = info_of("x265_42_alpha");
    EXPECT_NE(info.find("\n              6 of them in enhancement layers, not parsed\n"),
              std::string::npos);
    EXPECT_EQ(fact(info, "slices"), "B 2, I 1, P 1");
    EXPECT_EQ(fact(info, "pictures"), "4");
    EXPECT_EQ(fact(info, "rate"), "25 pictures per second (25000/1000)");
}

TEST(InspectInfo, CountsTheUnitsOfEachHigherLayer) {
    // Layers 0, 1, 9 and 63.
    const std::string info =
        info_of_bytes(bytes("000001 6001 000001 6009 000001 6049 000001 61f9")).out;
    EXPECT_EQ(fact(info, "NAL units"), "4: UNSPEC48 4");
    EXPECT_NE(info.find("\n              3 of them in enhancement layers, not parsed\n"),
              std::string::npos);
}

TEST(InspectInfo, CountsFields) {
    const std::string info = info_of("field_bff_hrd");
    EXPECT_EQ(fact(info, "rate"), "25 fields per second (25/1)");
    EXPECT_EQ(fact(info, "colour"), "limited range");
    EXPECT_EQ(fact(info, "SEI"), "active_parameter_sets 2, buffering_period 2, pic_timing 8");
}

TEST(InspectInfo, NamesFormats) {
    EXPECT_EQ(fact(info_of("mono400"), "format").substr(0, 10), "monochrome");
    EXPECT_EQ(fact(info_of("confwin_422"), "format").substr(0, 5), "4:2:2");
    EXPECT_EQ(fact(info_of("main444_12_cqpoff"), "format"), "4:4:4, 12 bit luma, 12 bit chroma");
    EXPECT_EQ(fact(info_of("kvazaar_high_tier"), "profile"), "Main, High tier, level 5.1");
}

// The window counts in units of two luma samples across, and in 4:2:2 one down.
TEST(InspectInfo, CropsByTheUnitsOfTheChromaFormat) {
    const nlohmann::json reading = units_of_reading("confwin_422");
    nlohmann::json sps;
    for (const nlohmann::json& each : reading.at(1).at("elements")) {
        sps[each.at(0).get<std::string>()] = each.at(1);
    }
    const auto value = [&](const char* name) { return sps.value(name, 0U); };
    const unsigned int width = value("pic_width_in_luma_samples");
    const unsigned int height = value("pic_height_in_luma_samples");
    ASSERT_EQ(value("conformance_window_flag"), 1U);
    EXPECT_EQ(fact(info_of("confwin_422"), "size"),
              std::to_string(width) + " x " + std::to_string(height) + ", cropped to " +
                  std::to_string(width - 2 * (value("conf_win_left_offset") +
                                              value("conf_win_right_offset"))) +
                  " x " +
                  std::to_string(height - value("conf_win_top_offset") -
                                 value("conf_win_bottom_offset")));
}

TEST(InspectInfo, CountsTheUnitsOfAllLayers) {
    for (const char* const name : {"htm_3d2d", "mprps_b3", "shm_2x", "x265_42_mvhevc"}) {
        const std::string info = run({"info", stream_path(name)}).out;
        const std::string count = std::to_string(units_of_reading(name).size());
        EXPECT_EQ(fact(info, "NAL units").substr(0, count.size() + 2), count + ": ") << name;
    }
}

// Its SPS has a set that is predicted from a predicted one and cannot be read by the library's own
// rules, so that nothing that needs it can.
TEST(InspectInfo, CountsFaults) {
    const outcome result = run({"info", stream_path("hm_ra16"), "--rules", "own"});
    std::size_t faults = 0;
    std::size_t slices = 0;
    for (const nlohmann::json& unit : units_of_reading("hm_ra16")) {
        const auto type = unit.at("nal_unit_type").get<unsigned int>();
        slices += type < 32 ? 1 : 0;
        faults += type < 32 || type == 33 || type == 34 ? 1 : 0;
    }
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(fact(result.out, "profile"), "unknown: no SPS could be read");
    EXPECT_EQ(fact(result.out, "slices"), "unreadable " + std::to_string(slices));
    EXPECT_EQ(fact(result.out, "rules"), "own");
    EXPECT_EQ(fact(result.out, "faults"), std::to_string(faults));
}

TEST(InspectInfo, IsShownInTheReadme) {
    std::string shown;
    std::istringstream lines(info_of("kvazaar_vui_full"));
    for (std::string line; std::getline(lines, line);) {
        shown += "    " + line + '\n';
    }
    const std::string readme = read_file(KOVRAN_TEST_STREAMS "/../../README.md");
    EXPECT_NE(readme.find("\n\n" + shown + '\n'), std::string::npos) << shown;
}

TEST(InspectInfo, ShowsWhatItHasOfABrokenStream) {
    const temporary_folder folder;
    const std::string whole = read_file(stream_path("hm_still"));
    // The VPS, and a part of the SPS.
    const outcome result = run({"info", folder.write("cut", whole.substr(0, 45))});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.out,
              "profile       unknown: no SPS could be read\n"
              "NAL units     2: SPS_NUT 1, VPS_NUT 1\n"
              "slices        none\n"
              "pictures      0\n"
              "IRAP          0\n"
              "SEI           none\n"
              "rules         standard\n"
              "faults        1\n");
    EXPECT_NE(
        result.err.find("unit 1 at 32: the SPS cannot be read: the data ends before the end of "
                        "profile_tier_level.general_reserved_zero_43bits at bit 52\n"),
        std::string::npos);
}

TEST(InspectInfo, TakesTheFirstSpsThatCanBeRead) {
    const std::string whole = read_file(stream_path("hm_still"));
    // The VPS, a part of the SPS, then all of it.
    const std::string stream =
        whole.substr(0, 28) + whole.substr(28, 20) + bytes("80") + whole.substr(28);
    const outcome result = program({"info", "-"}).input(stream).run();
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(fact(result.out, "profile"), "Main Still Picture, Main tier, level 4.1");
    EXPECT_EQ(fact(result.out, "slices"), "I 1");
    EXPECT_EQ(fact(result.out, "faults"), "1");
}

TEST(InspectInfo, ReadsStandardInputAndLengthPrefixes) {
    const std::string whole = read_file(stream_path("hm_still"));
    const std::string expected = info_of("hm_still");
    EXPECT_EQ(program({"info", "-"}).input(whole).run().out, expected);

    std::vector<std::string> units;
    for (const nlohmann::json& unit : units_of_reading("hm_still")) {
        units.push_back(whole.substr(unit.at("offset"), unit.at("size")));
    }
    // The offset of the IRAP picture is that in this file.
    const outcome prefixed =
        program({"info", "-", "--format", "length32"}).input(length_prefixed(units, 4)).run();
    EXPECT_EQ(prefixed.status, 0);
    EXPECT_EQ(fact(prefixed.out, "profile"), fact(expected, "profile"));
    EXPECT_EQ(fact(prefixed.out, "NAL units"), fact(expected, "NAL units"));
    const std::size_t offset = units.at(0).size() + units.at(1).size() + units.at(2).size() + 4 * 4;
    EXPECT_EQ(fact(prefixed.out, "IRAP"), "1: picture 0 at " + std::to_string(offset));
}

TEST(InspectInfo, FailsWithoutInput) {
    EXPECT_EQ(run({"info"}).status, 2);
    EXPECT_EQ(run({"info", stream_path("hm_still"), "--json"}).status, 2);
    const temporary_folder folder;
    const outcome missing = run({"info", folder.file("missing")});
    EXPECT_EQ(missing.status, 2);
    EXPECT_EQ(missing.out, "");
    EXPECT_NE(missing.err, "");
    EXPECT_EQ(run({"info", folder.write("empty", "")}).status, 2);
    const outcome none = run({"info", folder.write("none", "no video")});
    EXPECT_EQ(none.status, 1);
    EXPECT_NE(none.err.find("no NAL unit found"), std::string::npos);
    EXPECT_EQ(fact(none.out, "pictures"), "0");
}

}  // namespace
}  // namespace kovran::test
