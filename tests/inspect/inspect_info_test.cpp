#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <cstddef>
#include <sstream>
#include <string>
#include <vector>

#include "byte_string.h"
#include "program.h"
#include "readings.h"
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
              "rules         standard\n"
              "faults        none\n");
}

// Delimiters, repeated parameter sets, two IRAP pictures, nine types of messages.
TEST(InspectInfo, ShowsAStreamWithMessages) {
    EXPECT_EQ(info_of("sei_everything"),
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

TEST(InspectInfo, TellsHowFarIrapPicturesAreApart) {
    const auto irap_of = [](const std::string& pictures) {
        std::string stream;
        for (const char picture : pictures) {
            // first_slice_segment_in_pic_flag, and a PPS that is not there.
            stream += bytes(picture == 'I' ? "000001 2801a0" : "000001 0201e0");
        }
        return fact(program({"info", "-"}).input(stream).run().out, "IRAP");
    };
    EXPECT_EQ(irap_of("II"), "2: picture 0 at 3, 1 at 9; every picture");
    EXPECT_EQ(irap_of("IPI"), "2: picture 0 at 3, 2 at 15; every 2 pictures");
    EXPECT_EQ(irap_of("IPIIPI"),
              "4: picture 0 at 3, 2 at 15, 3 at 21, 5 at 33; every 1 to 2 pictures");
}

TEST(InspectInfo, CountsUnitsOfHigherLayers) {
    const std::string info = info_of("x265_42_alpha");
    EXPECT_NE(info.find("\n              6 of them in enhancement layers, not parsed\n"),
              std::string::npos);
    EXPECT_EQ(fact(info, "slices"), "B 2, I 1, P 1");
    EXPECT_EQ(fact(info, "pictures"), "4");
    EXPECT_EQ(fact(info, "rate"), "25 pictures per second (25000/1000)");
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
