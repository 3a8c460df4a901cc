#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "byte_string.h"
#include "program.h"
#include "sei_messages.h"
#include "support/bit_writer.h"
#include "support/parameter_sets.h"

namespace kovran::test {
namespace {

// The lines of `info` about what messages say of the whole stream.

outcome info_of(const std::string& stream, const std::string& rules = "standard") {
    return program({"info", "--rules", rules, "-"}).input(stream).run();
}

// The lines between the one with the names of messages and the one with the rules.
std::vector<std::string> facts(const std::string& stream, const std::string& rules = "standard") {
    const outcome result = info_of(stream, rules);
    EXPECT_EQ(result.status, 0) << result.err;
    std::vector<std::string> lines = lines_of_text(result.out);
    const auto behind = [&lines](const std::string& word) {
        for (std::size_t i = 0; i < lines.size(); ++i) {
            if (lines[i].rfind(word, 0) == 0) {
                return lines.begin() + static_cast<std::ptrdiff_t>(i);
            }
        }
        ADD_FAILURE() << word;
        return lines.end();
    };
    return {behind("SEI  ") + 1, behind("rules  ")};
}

using list = std::vector<std::string>;

std::string mastering_display(unsigned int max_luminance) {
    bit_writer volume = bit_writer().u<16>(13250).u<16>(34500).u<16>(7500).u<16>(3000);
    volume.u<16>(34000).u<16>(16000).u<16>(15635).u<16>(16450).u<32>(max_luminance).u<32>(1);
    return sei_message(137, payload_of(volume));
}

std::string light_level(unsigned int content, unsigned int picture) {
    return sei_message(144, payload_of(bit_writer().u<16>(content).u<16>(picture)));
}

const char display_of_1000[] =
    "G 0.2650 0.6900, B 0.1500 0.0600, R 0.6800 0.3200, white point 0.3127 0.3290; "
    "0.0001 to 1000 cd/m2";

TEST(InspectSeiInfo, HasNoLineForMessagesThatConcernAPicture) {
    EXPECT_EQ(facts(sei_unit(sei_message(6, bytes("d0")))), list());
}

TEST(InspectSeiInfo, TellsHdr10ByEitherMessageOrBoth) {
    const std::string display = std::string("HDR10         ") + display_of_1000;
    const std::string levels = "content light level 1000 cd/m2, of a picture on average 400 cd/m2";
    EXPECT_EQ(facts(sei_unit(mastering_display(10000000))), list{display});
    EXPECT_EQ(facts(sei_unit(light_level(1000, 400))), list{"HDR10         " + levels});
    EXPECT_EQ(facts(sei_unit(light_level(1000, 400) + mastering_display(10000000))),
              list{display + "; " + levels});
}

TEST(InspectSeiInfo, KeepsTheFirstOfSeveralValues) {
    const std::string transfers = sei_message(147, bytes("12")) + sei_message(147, bytes("10"));
    const std::string encoders =
        sei_message(5, std::string(16, 'n') + "first") + sei_message(5, std::string(16, 'n') + "2");
    EXPECT_EQ(
        facts(sei_unit(mastering_display(10000000) + light_level(1, 2) +
                       mastering_display(20000000) + light_level(3, 4) + transfers + encoders)),
        (list{std::string("HDR10         ") + display_of_1000 +
                  "; content light level 1 cd/m2, of a picture on average 2 cd/m2",
              "transfer      ARIB STD-B67, HLG preferred", "encoder       first"}));
}

TEST(InspectSeiInfo, TellsThePreferredTransfer) {
    EXPECT_EQ(facts(sei_unit(sei_message(147, bytes("12")))),
              list{"transfer      ARIB STD-B67, HLG preferred"});
    EXPECT_EQ(facts(sei_unit(sei_message(147, bytes("10")))),
              list{"transfer      SMPTE ST 2084, PQ preferred"});
}

// An HDR10+ message that cannot be read counts, as others cannot say why there is none.
TEST(InspectSeiInfo, CountsMessagesOfHdr10PlusAndCaptions) {
    const std::string hdr10_plus = sei_message(4, bytes("b5 003c 0001 04 01"));
    const std::string captions = sei_message(4, bytes("b5 0031 47413934 03 c0ffff"));
    const std::string format = sei_message(4, bytes("b5 0031 44544731 01"));
    EXPECT_EQ(facts(sei_unit(hdr10_plus + captions + format)),
              (list{"HDR10+        1 message", "captions      A/53, 1 message"}));
    EXPECT_EQ(facts(sei_unit(hdr10_plus + captions) + sei_unit(captions + hdr10_plus + captions)),
              (list{"HDR10+        2 messages", "captions      A/53, 3 messages"}));
    EXPECT_EQ(facts(sei_unit(format + sei_message(4, bytes("b5")))), list());
}

// Types 62 and 63; the first payload byte of metadata is 0x19.
TEST(InspectSeiInfo, CountsUnitsOfDolbyVision) {
    const std::string metadata = bytes("000001 7c01 19aa");
    const std::string enhancement = bytes("000001 7e01 2601");
    EXPECT_EQ(facts(metadata),
              list{"Dolby Vision  1 unit of metadata, 0 units of an enhancement layer"});
    EXPECT_EQ(facts(enhancement + metadata + enhancement + metadata + enhancement),
              list{"Dolby Vision  2 units of metadata, 3 units of an enhancement layer"});
    EXPECT_EQ(facts(enhancement),
              list{"Dolby Vision  0 units of metadata, 1 unit of an enhancement layer"});
    EXPECT_EQ(facts(bytes("000001 7c01 18aa 000001 7c01 000001 7a01 19aa")), list());
}

// 01:02:03 and picture 4; as another, hours that are not there.
TEST(InspectSeiInfo, CountsTimesAndTellsTheFirstOne) {
    const auto time = [](unsigned int picture) {
        bit_writer bits = bit_writer().u<1>(1).u<1>(0).u<5>(0).u<1>(1).u<1>(0).u<1>(0);
        return bits.u(9, picture).u<6>(3).u<6>(2).u<5>(1).u<5>(0);
    };
    const auto code = [](const std::vector<bit_writer>& times) {
        bit_writer bits = bit_writer().u(2, times.size());
        for (const bit_writer& each : times) {
            append(bits, each);
        }
        return sei_message(136, payload_of(bits));
    };
    const bit_writer none = bit_writer().u<1>(0);
    EXPECT_EQ(facts(sei_unit(code({none, time(4)}))),
              list{"time code     1 time, first 01:02:03:04"});
    EXPECT_EQ(facts(sei_unit(code({time(5), time(6)}) + code({time(7)}))),
              list{"time code     3 times, first 01:02:03:05"});
    EXPECT_EQ(facts(sei_unit(code({none}))), list());
}

list encoder(const std::string& text) {
    return facts(sei_unit(sei_message(5, std::string(16, 'n') + text)));
}

TEST(InspectSeiInfo, TellsTheEncoderWithoutItsOptions) {
    EXPECT_EQ(encoder("e 1.0"), list{"encoder       e 1.0"});
    EXPECT_EQ(encoder("e 1.0 - options: a=1"), list{"encoder       e 1.0"});
    EXPECT_EQ(encoder("e - H.265/HEVC codec - Copyright - options: a=1"), list{"encoder       e"});
    EXPECT_EQ(encoder("e - Copyleft - options: a=1"), list{"encoder       e"});
    EXPECT_EQ(encoder("e - optional"), list{"encoder       e - optional"});
    EXPECT_EQ(encoder(bytes("ff")), list());
}

TEST(InspectSeiInfo, ShortensALongNameOfAnEncoder) {
    const std::string longest(120, 'e');
    EXPECT_EQ(encoder(longest), list{"encoder       " + longest});
    EXPECT_EQ(encoder(longest + 'f'), list{"encoder       " + longest + "..."});
    EXPECT_EQ(encoder("e\n\t1.0"), list{R"(encoder       e\x0a\x091.0)"});
}

// Of messages the older rules read three types; a unit's type is the same by all rules.
TEST(InspectSeiInfo, HasNothingOfMessagesByItsOwnRules) {
    EXPECT_EQ(
        facts(sei_unit(mastering_display(1) + light_level(1, 1) + sei_message(147, bytes("12")) +
                       sei_message(5, std::string(16, 'n') + "e")),
              "own"),
        list());
    EXPECT_EQ(facts(bytes("000001 7c01 19aa"), "own"),
              list{"Dolby Vision  1 unit of metadata, 0 units of an enhancement layer"});
}

}  // namespace
}  // namespace kovran::test
