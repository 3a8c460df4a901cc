#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <string>
#include <vector>

#include "annex_b_unit.h"
#include "byte_string.h"
#include "program.h"
#include "sei_messages.h"
#include "support/bit_writer.h"
#include "support/parameter_sets.h"

namespace kovran::test {
namespace {

// What an SEI message says, in words: lines with '=' in `dump`, "meaning" in `dump --json`.

using list = std::vector<std::string>;

// Of the last message of the stream, by both.
list meaning_in(const std::string& stream) {
    list lines;
    const std::string sign = "    = ";
    for (const std::string& line : lines_of_text(program({"dump", "-"}).input(stream).run().out)) {
        if (line.rfind(sign, 0) == 0) {
            lines.push_back(line.substr(sign.size()));
        }
    }
    const list json = lines_of_text(program({"dump", "--json", "-"}).input(stream).run().out);
    const nlohmann::json message =
        nlohmann::json::parse(json.back()).at("syntax").at("sei_message").back();
    if (lines.empty()) {
        EXPECT_FALSE(message.contains("meaning"));
    } else {
        EXPECT_EQ(message.at("meaning"), nlohmann::json(lines));
    }
    return lines;
}

list meaning(unsigned int type, const std::string& payload) {
    return meaning_in(sei_unit(sei_message(type, payload)));
}

list meaning(unsigned int type, const bit_writer& payload) {
    return meaning(type, payload_of(payload));
}

TEST(InspectSeiMeaning, IsLeftOutWhereElementsSayAll) {
    EXPECT_EQ(meaning(6, bit_writer().se(0).u<1>(1).u<1>(0)), list());
    EXPECT_EQ(meaning(100, "abc"), list());
}

// ---- User data registered by Recommendation ITU-T T.35

constexpr unsigned int t35 = 4;

list meaning_of_t35(const std::string& digits) {
    return meaning(t35, bytes(digits));
}

TEST(InspectSeiMeaning, NamesTheCodesOfUserData) {
    EXPECT_EQ(meaning_of_t35("b5 0031 00"), list{"United States (0xb5), ATSC (0x0031)"});
    EXPECT_EQ(meaning_of_t35("26 0004"), list{"China (0x26), CUVA (0x0004)"});
    EXPECT_EQ(meaning_of_t35("b4 00 5000"), list{"United Kingdom (0xb4), V-Nova (0x5000)"});
    EXPECT_EQ(meaning_of_t35("b5 0102"), list{"United States (0xb5), provider 0x0102"});
    EXPECT_EQ(meaning_of_t35("0c 0031"), list{"country 0x0c, provider 0x0031"});
    EXPECT_EQ(meaning_of_t35("0c 0031 47413934 03 c0ffff"), list{"country 0x0c, provider 0x0031"});
    EXPECT_EQ(meaning_of_t35("b5 00"), list());
    EXPECT_EQ(meaning_of_t35("b4 00 50"), list());
}

TEST(InspectSeiMeaning, NamesKindsOfUserDataThatAreNotRead) {
    EXPECT_EQ(meaning_of_t35("b5 0031 47413934 09 00"),
              list{"United States (0xb5), ATSC (0x0031): ST 2094-10"});
    EXPECT_EQ(meaning_of_t35("b5 003a 00"), list{"United States (0xb5), ETSI (0x003a): SL-HDR"});
    EXPECT_EQ(meaning_of_t35("b5 003b 00"),
              list{"United States (0xb5), Dolby (0x003b): Dolby Vision RPU"});
    EXPECT_EQ(meaning_of_t35("b5 0090 00"),
              list{"United States (0xb5), SMPTE (0x0090): SMPTE metadata"});
}

// The line behind the codes: "GA94" and a byte for the kind, or "DTG1".
std::string atsc_line(const std::string& kind, const std::string& name, const std::string& digits) {
    const list lines = meaning_of_t35("b5 0031 " + kind + digits);
    EXPECT_EQ(lines.size(), 2U);
    EXPECT_EQ(lines.front(), "United States (0xb5), ATSC (0x0031): " + name);
    return lines.back();
}

// process_cc_data_flag and cc_count, em_data, and three bytes for each: cc_valid and cc_type behind
// five marker bits.
TEST(InspectSeiMeaning, ListsCaptionTriples) {
    const auto captions = [](const std::string& digits) {
        return atsc_line("47413934 03", "A/53 captions", digits);
    };
    EXPECT_EQ(captions("c3 ff fc9420 f98080 ff0f01 ff"),
              "3 caption triples, by type: 0 9420, 1 8080 not valid, 3 0f01");
    EXPECT_EQ(captions("c1 ff fd942c ff"), "1 caption triple, by type: 1 942c");
    EXPECT_EQ(captions("c0 ff ff"), "no caption triples");
    EXPECT_EQ(captions("c2 ff fc9420 f980"), "the captions cannot be read");
}

TEST(InspectSeiMeaning, TellsTheActiveFormat) {
    const auto format = [](const std::string& digits) {
        return atsc_line("44544731", "active format description", digits);
    };
    EXPECT_EQ(format("41 fa"), "active format 10");
    EXPECT_EQ(format("01"), "no active format");
    EXPECT_EQ(format("41"), "the active format cannot be read");
}

// Four flags, then 14 bits behind two marker bits for each: 60, 1020, 3 and 1916.
TEST(InspectSeiMeaning, TellsWhereBarsAre) {
    const auto bars = [](const std::string& digits) {
        return atsc_line("47413934 06", "bar data", digits);
    };
    EXPECT_EQ(bars("ff c03c c3fc c003 c77c"),
              "top bar ends at line 60, bottom bar begins at line 1020, left bar ends at pixel 3, "
              "right bar begins at pixel 1916");
    EXPECT_EQ(bars("5f c3fc c77c"),
              "bottom bar begins at line 1020, right bar begins at pixel 1916");
    EXPECT_EQ(bars("0f"), "no bars");
    EXPECT_EQ(bars("8f c0"), "the bars cannot be read");
}

// Behind the codes; a window's light in steps of 1/100000, and its tone mapping.
struct hdr10_plus_window {
    bit_writer light;
    bit_writer mapping;
};

bit_writer hdr10_plus(unsigned int version, const std::vector<hdr10_plus_window>& windows) {
    bit_writer bits = bit_writer().u<8>(0xB5).u<16>(0x003C).u<16>(1).u<8>(4).u(8, version);
    bits.u(2, windows.size());
    for (std::size_t w = 1; w < windows.size(); ++w) {
        bits.u<64>(0).u<64>(0).u<25>(
            0);  // place and shape: nine values of 16 bits, one of 8, a flag
    }
    bits.u<27>(500).u<1>(0);  // targeted_system_display_maximum_luminance
    for (const hdr10_plus_window& window : windows) {
        append(bits, window.light);
    }
    bits.u<1>(0);
    for (const hdr10_plus_window& window : windows) {
        append(bits, window.mapping);
    }
    return bits;
}

const bit_writer plain_light =
    bit_writer().u<17>(10000).u<17>(100000).u<17>(1).u<17>(250).u<4>(0).u<10>(0);
const bit_writer light_with_percentiles = bit_writer()
                                              .u<17>(0)
                                              .u<17>(0)
                                              .u<17>(0)
                                              .u<17>(0)
                                              .u<4>(2)
                                              .u<7>(50)
                                              .u<17>(500)
                                              .u<7>(99)
                                              .u<17>(90000)
                                              .u<10>(0);
const bit_writer no_mapping = bit_writer().u<1>(0).u<1>(0);

TEST(InspectSeiMeaning, TellsTheLightOfEachWindow) {
    bit_writer two_anchors = bit_writer().u<1>(1).u<12>(64).u<12>(128).u<4>(2);
    two_anchors.u<10>(256).u<10>(512).u<1>(0);
    const bit_writer one_anchor = bit_writer().u<1>(1).u<12>(0).u<12>(7).u<4>(1).u<10>(1).u<1>(0);
    const std::string codes = "United States (0xb5), Samsung (0x003c): HDR10+";
    const std::string plain =
        "largest R 0.10000, G 1.00000, B 0.00001, average of the largest 0.00250";
    const std::string percentiles =
        "largest R 0.00000, G 0.00000, B 0.00000, average of the largest 0.00000; "
        "50 % 0.00500, 99 % 0.90000";
    EXPECT_EQ(meaning(t35, hdr10_plus(1, {{plain_light, no_mapping}})),
              (list{codes, "application version 1, for a display of 500 cd/m2", plain}));
    EXPECT_EQ(meaning(t35, hdr10_plus(0, {{light_with_percentiles, two_anchors},
                                          {plain_light, one_anchor}})),
              (list{codes, "application version 0, for a display of 500 cd/m2",
                    percentiles + "; knee 64 128, 2 anchors", plain + "; knee 0 7, 1 anchor"}));
    EXPECT_EQ(meaning(t35, hdr10_plus(2, {{plain_light, no_mapping}})),
              (list{codes, "the metadata cannot be read"}));
}

// ---- User data that is not registered

constexpr unsigned int unregistered = 5;
const std::string x265 = bytes("2ca2de09 b51747db bb55a4fe 7fc2fc4e");
const std::string kvazaar = bytes("32fe466c 98414269 ae356a91 549ef3f1");
const std::string nobody(16, 'n');

TEST(InspectSeiMeaning, HasTheTextOfAnEncoder) {
    EXPECT_EQ(meaning(unregistered, x265 + "x265 (build 1)" + bytes("00")),
              list{"x265: x265 (build 1)"});
    EXPECT_EQ(meaning(unregistered, kvazaar + "K"), list{"Kvazaar: K"});
    EXPECT_EQ(meaning(unregistered, nobody + "a text"), list{"a text"});
    EXPECT_EQ(meaning(unregistered, x265 + bytes("ff00")), list{"x265"});
    EXPECT_EQ(meaning(unregistered, x265), list{"x265"});
    EXPECT_EQ(meaning(unregistered, nobody + bytes("6101")), list());
}

TEST(InspectSeiMeaning, HasEscapesForControlCharacters) {
    EXPECT_EQ(meaning(unregistered, nobody + "a\tb\r\nc"), list{R"(a\x09b\x0d\x0ac)"});
}

TEST(InspectSeiMeaning, HasTheFirst16384CharactersOfALongText) {
    const std::string longest(16384, 'k');
    EXPECT_EQ(meaning(unregistered, nobody + longest), list{longest});
    EXPECT_EQ(meaning(unregistered, nobody + longest + 'l'), list{longest + "..."});
}

// A status byte, then eight bytes with FF behind every second one.
TEST(InspectSeiMeaning, HasTimesAsDates) {
    const std::string micro = "MISPmicrosectime";
    const std::string nano = bytes("cf848278 ee23306c 9265e8fe f22fb8b8");
    EXPECT_EQ(meaning(unregistered, micro + bytes("1f 0003ff 8d7eff a4c8ff 6240")),
              list{"MISP time in microseconds: 2001-09-09T01:46:40.123456Z"});
    EXPECT_EQ(meaning(unregistered, nano + bytes("1f 0de0ff b6b3ff aebfff cd15")),
              list{"MISP time in nanoseconds: 2001-09-09T01:46:40.123456789Z"});
    EXPECT_EQ(meaning(unregistered, micro + bytes("1f 0000ff 0000ff 0000ff 0001")),
              list{"MISP time in microseconds: 1970-01-01T00:00:00.000001Z"});
    EXPECT_EQ(meaning(unregistered, micro + bytes("1f ffffff ffffff ffffff ffff")),
              list{"MISP time in microseconds: 586524-01-19T08:01:49.551615Z"});
    EXPECT_EQ(meaning(unregistered, micro + bytes("1f 0003ff 8d7eff a4c8ff 62")),
              list{"MISP time in microseconds"});
}

// ---- Pictures

TEST(InspectSeiMeaning, TellsHowToTurnAPicture) {
    const auto orientation = [](bool horizontally, bool vertically, unsigned int rotation) {
        const list lines = meaning(
            47, bit_writer().u<1>(0).u<1>(horizontally).u<1>(vertically).u(16, rotation).u<1>(0));
        EXPECT_EQ(lines.size(), 1U);
        return lines.back();
    };
    EXPECT_EQ(orientation(false, false, 0x4000), "turned anticlockwise by 90 degrees");
    EXPECT_EQ(orientation(true, false, 0xC000),
              "flipped horizontally, then turned anticlockwise by 270 degrees");
    EXPECT_EQ(orientation(false, true, 0),
              "flipped vertically, then turned anticlockwise by 0 degrees");
    EXPECT_EQ(orientation(true, true, 0x2000),
              "flipped in both directions, then turned anticlockwise by 45 degrees");
    EXPECT_EQ(meaning(47, bit_writer().u<1>(1)), list{"as decoded from here on"});
}

list meaning_of_hash(unsigned int chroma_format_idc, const std::string& digits) {
    sps_syntax sps;
    sps.chroma_format = bit_writer().ue(chroma_format_idc);
    return meaning_in(annex_b_unit(VPS_NUT, vps_syntax().rbsp()) +
                      annex_b_unit(SPS_NUT, sps.rbsp()) +
                      sei_unit(sei_message(132, bytes(digits)), SUFFIX_SEI_NUT));
}

TEST(InspectSeiMeaning, HasTheHashOfEachPlane) {
    EXPECT_EQ(meaning_of_hash(1, "01 0001 abcd f00d"), list{"Y 0001, Cb abcd, Cr f00d"});
    EXPECT_EQ(meaning_of_hash(0, "02 00012345"), list{"Y 00012345"});
    EXPECT_EQ(meaning_of_hash(0, "00 000102030405060708090a0b0c0d0e0f"),
              list{"Y 000102030405060708090a0b0c0d0e0f"});
    EXPECT_EQ(meaning_of_hash(1, "03"), list());
}

// One without a time, 12:34:56 and picture 7, and second 5, picture 12 of dropped counts.
TEST(InspectSeiMeaning, HasTheTimesOfATimeCode) {
    bit_writer code = bit_writer().u<2>(3).u<1>(0);
    code.u<1>(1).u<1>(0).u<5>(0).u<1>(1).u<1>(0).u<1>(0).u<9>(7).u<6>(56).u<6>(34).u<5>(12);
    code.u<5>(0);
    code.u<1>(1).u<1>(0).u<5>(4).u<1>(0).u<1>(0).u<1>(0).u<9>(12).u<1>(1).u<6>(5).u<1>(0);
    code.u<5>(0);
    EXPECT_EQ(meaning(136, code), list{"12:34:56:07, --:--:05;12"});
    EXPECT_EQ(meaning(136, bit_writer().u<2>(1).u<1>(0)), list());
}

// ---- Light and colour

// In steps of 1/50000; green is the one with the largest y, red the other with the larger x.
TEST(InspectSeiMeaning, TellsTheMasteringDisplay) {
    const bit_writer volume = bit_writer()
                                  .u<16>(34000)
                                  .u<16>(16000)
                                  .u<16>(13250)
                                  .u<16>(34500)
                                  .u<16>(7500)
                                  .u<16>(3000)
                                  .u<16>(15635)
                                  .u<16>(16450)
                                  .u<32>(10000000)
                                  .u<32>(1);
    EXPECT_EQ(meaning(137, volume),
              list{"G 0.2650 0.6900, B 0.1500 0.0600, R 0.6800 0.3200, white point 0.3127 0.3290; "
                   "0.0001 to 1000 cd/m2"});
}

TEST(InspectSeiMeaning, TellsLightLevels) {
    EXPECT_EQ(meaning(144, bit_writer().u<16>(1000).u<16>(400)),
              list{"content light level 1000 cd/m2, of a picture on average 400 cd/m2"});
    EXPECT_EQ(meaning(144, bit_writer().u<16>(0).u<16>(1)),
              list{"content light level unknown, of a picture on average 1 cd/m2"});
    EXPECT_EQ(meaning(144, bit_writer().u<16>(1).u<16>(0)),
              list{"content light level 1 cd/m2, of a picture on average unknown"});
}

TEST(InspectSeiMeaning, TellsTheAmbientLight) {
    EXPECT_EQ(meaning(148, bit_writer().u<32>(3140000).u<16>(15635).u<16>(16450)),
              list{"314 lux, 0.3127 0.3290"});
    EXPECT_EQ(meaning(148, bit_writer().u<32>(1).u<16>(0).u<16>(50000)),
              list{"0.0001 lux, 0.0000 1.0000"});
}

// ccv_cancel_flag, ccv_persistence_flag, four flags of what is there, two reserved bits.
TEST(InspectSeiMeaning, TellsTheColoursOfTheContent) {
    bit_writer all = bit_writer().u<8>(0b00111100);
    all.u<32>(13250).u<32>(34500).u<32>(7500).u<32>(3000).u<32>(0xFFFF3CB0).u<32>(0);
    all.u<32>(1000).u<32>(40000000).u<32>(5000000);
    EXPECT_EQ(meaning(149, all),
              list{"G 0.2650 0.6900, B 0.1500 0.0600, R -1.0000 0.0000, at least 0.0001 cd/m2, "
                   "at most 4 cd/m2, on average 0.5 cd/m2"});
    EXPECT_EQ(meaning(149, bit_writer().u<8>(0b00010000).u<32>(20000000)),
              list{"at least 2 cd/m2"});
    EXPECT_EQ(meaning(149, bit_writer().u<8>(0b00001000).u<32>(20000000)), list{"at most 2 cd/m2"});
    EXPECT_EQ(meaning(149, bit_writer().u<8>(0b00000100).u<32>(20000000)),
              list{"on average 2 cd/m2"});
    EXPECT_EQ(meaning(149, bit_writer().u<8>(0b01000000)), list());
    EXPECT_EQ(meaning(149, bit_writer().u<1>(1)), list());
}

}  // namespace
}  // namespace kovran::test
