#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <string>
#include <vector>

#include "byte_string.h"
#include "program.h"
#include "sei_messages.h"
#include "support/bit_writer.h"
#include "support/parameter_sets.h"

namespace kovran::test {
namespace {

// The elements of SEI messages in `dump`, `dump --json` and `trace`.

using list = std::vector<std::string>;

outcome run_on(const std::string& stream, std::vector<std::string> arguments) {
    arguments.emplace_back("-");
    return program(std::move(arguments)).input(stream).run();
}

// With single spaces, without those at the beginning.
std::string narrow(const std::string& line) {
    std::string result;
    for (const char letter : line) {
        if (letter != ' ' || (!result.empty() && result.back() != ' ')) {
            result += letter;
        }
    }
    return result;
}

// The lines of the verb that begin with this name, in a trace without its columns in front.
list lines_with(const std::string& name, const std::string& stream, const std::string& verb) {
    list lines;
    for (const std::string& line : lines_of_text(run_on(stream, {verb}).out)) {
        const std::string text = narrow(line);
        const std::size_t begin = verb == "dump" ? 0 : text.find(name);
        if (begin != text.npos && text.rfind(name, begin) == begin) {
            lines.push_back(text.substr(begin));
        }
    }
    return lines;
}

list dump_lines(const std::string& name, const std::string& stream) {
    return lines_with(name, stream, "dump");
}
list trace_lines(const std::string& name, const std::string& stream) {
    return lines_with(name, stream, "trace");
}

nlohmann::ordered_json json_of(const std::string& stream) {
    return nlohmann::ordered_json::parse(run_on(stream, {"dump", "--json"}).out);
}
nlohmann::ordered_json first_message(const std::string& stream) {
    return json_of(stream).at("syntax").at("sei_message").at(0);
}

bit_writer& add_bytes(bit_writer& bits, const std::string& text) {
    for (const char byte : text) {
        bits.u<8>(static_cast<unsigned char>(byte));
    }
    return bits;
}

// ---- Forms of values

// annotated_regions() with a language and no label; the elements up to the language fill a byte.
std::string message_with_text(const std::string& text) {
    bit_writer bits = bit_writer().u<1>(0).u<1>(0).u<1>(0).u<1>(0).u<1>(0).u<1>(1).u<1>(0).u<1>(1);
    add_bytes(bits, text + '\0').ue(0).ue(0);
    return sei_unit(sei_message(202, payload_of(bits)));
}

TEST(InspectSei, ShowsATextWithoutTheByteThatEndsIt) {
    const std::string stream = message_with_text("en-GB");
    const std::string name = "ar_object_label_language";
    EXPECT_EQ(dump_lines(name + ' ', stream), list{name + " en-GB"});
    EXPECT_EQ(trace_lines(name + ' ', stream), list{name + " st(v) en-GB"});
    EXPECT_EQ(first_message(stream).at(name), "en-GB");
    EXPECT_EQ(dump_lines(name + ' ', message_with_text("")), list{name + ' '});
    EXPECT_EQ(first_message(message_with_text("")).at(name), "");
}

// An escape sequence, DEL and CSI as a character of two bytes; a quote and a backslash.
TEST(InspectSei, HasNoControlCharactersOfATextInItsOutput) {
    const std::string stream = message_with_text("a\x1b[2J\x7f\xc2\x9b\"\\");
    const std::string name = "ar_object_label_language";
    const std::string shown = R"(a\x1b[2J\x7f)"
                              "\xc2"
                              R"(\x9b"\)";
    EXPECT_EQ(dump_lines(name + ' ', stream), list{name + ' ' + shown});
    EXPECT_EQ(trace_lines(name + ' ', stream), list{name + " st(v) " + shown});
    EXPECT_NE(run_on(stream, {"dump", "--json"})
                  .out.find(R"("ar_object_label_language":"a\u001b[2J\u007f\u009b\"\\",)"),
              std::string::npos);
}

// An e with an accent in UTF-8, and one in Latin-1, which is no UTF-8.
TEST(InspectSei, ShowsATextThatIsNotAscii) {
    const std::string stream = message_with_text("\xc3\xa9\xe9z");
    const std::string name = "ar_object_label_language";
    EXPECT_EQ(dump_lines(name + ' ', stream), list{name + " \xc3\xa9\xe9z"});
    EXPECT_EQ(trace_lines(name + ' ', stream), list{name + " st(v) \xc3\xa9\xe9z"});
    EXPECT_NE(run_on(stream, {"dump", "--json"}).out.find(R"("\u00e9\ufffdz")"), std::string::npos);
}

TEST(InspectSei, ShowsIdentifiersAndRunsOfBytesInHexadecimal) {
    const std::string digits = "000102030405060708090a0b0c0d0eff";
    const std::string stream = sei_unit(sei_message(5, bytes(digits + "00fe")));
    EXPECT_EQ(dump_lines("uuid", stream), list{"uuid_iso_iec_11578 " + digits});
    EXPECT_EQ(dump_lines("user_data_payload", stream), list{"user_data_payload_byte[0..1] 00fe"});
    EXPECT_EQ(trace_lines("uuid", stream), list{"uuid_iso_iec_11578 u(n) " + digits});
    EXPECT_EQ(trace_lines("user_data_payload", stream),
              list{"user_data_payload_byte[0..1] b(8) 00fe"});
    EXPECT_EQ(first_message(stream).dump(),
              R"({"payload_type":5,"payload_size":18,"name":"user_data_unregistered",)"
              R"("uuid_iso_iec_11578":")" +
                  digits + R"(","user_data_payload_byte":"00fe"})");
}

// Behind the three bits of recovery_point().
std::string message_with_extension(const bit_writer& extension) {
    bit_writer bits = bit_writer().se(0).u<1>(1).u<1>(0);
    append(bits, extension);
    return sei_unit(sei_message(6, payload_of(bits.trailing_bits())));
}

void expect_extension(const bit_writer& extension, const std::string& value,
                      const std::string& json) {
    const std::string stream = message_with_extension(extension);
    const std::string name = "reserved_payload_extension_data";
    EXPECT_EQ(dump_lines(name, stream), list{name + ' ' + value});
    EXPECT_EQ(trace_lines(name, stream), list{name + " u(v) " + value});
    EXPECT_EQ(first_message(stream).at(name).dump(), json);
}

TEST(InspectSei, ShowsExtensionDataAsANumberOrInHexadecimal) {
    expect_extension(bit_writer().u<3>(5), "5", "5");
    expect_extension(bit_writer().u<63>(0x7FFFFFFFFFFFFFFF), "9223372036854775807",
                     "9223372036854775807");
    expect_extension(bit_writer().u<64>(0x8123456789ABCDEF), "0x8123456789abcdef",
                     "\"0x8123456789abcdef\"");
    expect_extension(bit_writer().u<2>(2).u<64>(1), "0x20000000000000001",
                     "\"0x20000000000000001\"");
    expect_extension(bit_writer().u<3>(6).u<64>(0xF00000000000000D), "0x6f00000000000000d",
                     "\"0x6f00000000000000d\"");
    expect_extension(bit_writer().u<1>(1).u<64>(0), "0x10000000000000000",
                     "\"0x10000000000000000\"");
}

// Whole bytes behind whole bytes.
TEST(InspectSei, ShowsExtensionDataOfBytesAsBytes) {
    const std::string stream = sei_unit(sei_message(144, bytes("03e80190 0123456789abcdef 01 80")));
    const std::string name = "reserved_payload_extension_data";
    EXPECT_EQ(dump_lines(name, stream), list{name + " 0123456789abcdef01"});
    EXPECT_EQ(trace_lines(name, stream), list{name + " u(v) 0123456789abcdef01"});
    EXPECT_EQ(first_message(stream).at(name), "0123456789abcdef01");
}

TEST(InspectSei, ShowsFillerPayload) {
    const std::string stream = sei_unit(sei_message(3, bytes("ffffff")));
    EXPECT_EQ(dump_lines("ff_byte", stream), list{"ff_byte[0..2] ffffff"});
    EXPECT_EQ(trace_lines("filler_payload.ff_byte", stream),
              list(3, "filler_payload.ff_byte b(8) 255"));
    const list lines = lines_of_text(run_on(stream, {"trace"}).out);
    EXPECT_EQ(narrow(lines.at(4)).substr(0, 7), "8.0 16 ");
    EXPECT_EQ(narrow(lines.at(6)).substr(0, 8), "10.0 32 ");
    EXPECT_EQ(first_message(stream).at("ff_byte"), "ffffff");
}

TEST(InspectSei, TellsAFillerByteThatIsNotFf) {
    const std::string stream = sei_unit(sei_message(3, bytes("fffe")));
    EXPECT_EQ(dump_lines("ff_byte", stream), list{"ff_byte[0..1] fffe (not allowed here)"});
    EXPECT_EQ(trace_lines("filler_payload.ff_byte", stream),
              (list{"filler_payload.ff_byte b(8) 255", "filler_payload.ff_byte b(8) 254"}));
    EXPECT_EQ(json_of(stream).at("out_of_range").dump(), R"(["sei_message[0].ff_byte[0..1]"])");
}

// ---- Elements that come more than once

// depth_representation_info() with four values: sign, exponent, length of the mantissa, mantissa.
TEST(InspectSei, HasAllValuesOfAnElementThatComesMoreThanOnce) {
    bit_writer bits = bit_writer().u<4>(0b1111).ue(1).ue(0);
    bits.u<1>(0).u<7>(1).u<5>(1).u<2>(3).u<1>(1).u<7>(2).u<5>(0).u<1>(1);
    bits.u<1>(1).u<7>(3).u<5>(2).u<3>(7).u<1>(0).u<7>(2).u<5>(0).u<1>(0);
    const std::string stream = sei_unit(sei_message(177, payload_of(bits)));
    const nlohmann::ordered_json message = first_message(stream);
    EXPECT_EQ(message.at("da_sign_flag").dump(), "[0,1,1,0]");
    EXPECT_EQ(message.at("da_exponent").dump(), "[1,2,3,2]");
    EXPECT_EQ(message.at("da_mantissa_len_minus1").dump(), "[1,0,2,0]");
    EXPECT_EQ(message.at("da_mantissa").dump(), "[3,1,7,0]");
    EXPECT_EQ(message.at("d_max_flag"), 1);
    EXPECT_EQ(dump_lines("da_mantissa ", stream),
              (list{"da_mantissa 3", "da_mantissa 1", "da_mantissa 7", "da_mantissa 0"}));
}

// Objects with these indices; each with a bounding box whose four values are 1, 2, 3 and the number
// of the object in the message. ar_object_cancel_flag 0, ar_bounding_box_update_flag 1 and
// ar_bounding_box_cancel_flag 0 stand before them.
std::string objects(const std::vector<unsigned int>& indices) {
    bit_writer bits = bit_writer().u<7>(0).ue(static_cast<unsigned int>(indices.size()));
    for (std::size_t i = 0; i < indices.size(); ++i) {
        bits.ue(indices[i]).u<3>(0b010).u<16>(1).u<16>(2).u<16>(3).u<16>(i);
    }
    return sei_unit(sei_message(202, payload_of(bits)));
}

TEST(InspectSei, HasTheIndicesThatTheStreamGivesObjects) {
    const std::string stream = objects({2, 0});
    const nlohmann::ordered_json message = first_message(stream);
    EXPECT_EQ(message.at("ar_object_idx").dump(), "[2,0]");
    EXPECT_EQ(message.at("ar_object_cancel_flag").dump(), "[0,0]");
    EXPECT_EQ(message.at("ar_bounding_box_left").dump(), "[2,null,2]");
    EXPECT_EQ(message.at("ar_bounding_box_height").dump(), "[1,null,0]");
    EXPECT_EQ(dump_lines("ar_bounding_box_height", stream),
              (list{"ar_bounding_box_height[2] 0", "ar_bounding_box_height[0] 1"}));
    EXPECT_EQ(trace_lines("ar_bounding_box_height", stream),
              (list{"ar_bounding_box_height[2] u(n) 0", "ar_bounding_box_height[0] u(n) 1"}));
    EXPECT_EQ(first_message(objects({1, 1, 1})).at("ar_bounding_box_height").dump(),
              "[null,[0,1,2]]");
}

TEST(InspectSei, HasNoArrayOfAllEntriesBeforeAnObjectThatIsFarAway) {
    const nlohmann::ordered_json far = json_of(objects({1023, 2047, 2048, 4294967294}));
    const nlohmann::ordered_json message = far.at("syntax").at("sei_message").at(0);
    const nlohmann::ordered_json& heights = message.at("ar_bounding_box_height");
    ASSERT_EQ(heights.size(), 2049U);
    EXPECT_EQ(heights.at(0), nullptr);
    EXPECT_EQ(heights.at(1023), 0);
    EXPECT_EQ(heights.at(2047), 1);
    EXPECT_EQ(heights.at(2048), 2);
    EXPECT_EQ(message.at("ar_bounding_box_height[4294967294]"), 3);
    EXPECT_EQ(far.at("out_of_range").size(), 4U);

    const nlohmann::ordered_json alone = first_message(objects({1024}));
    EXPECT_EQ(alone.at("ar_bounding_box_height[1024]"), 0);
    EXPECT_FALSE(alone.contains("ar_bounding_box_height"));
}

// ---- Messages in messages

// bitstream_subset_flag, nesting_op_flag, all_layers_flag and the zero bits behind them.
std::string nest_of(const std::string& messages) {
    return sei_message(133, bytes("20") + messages);
}
const std::string recovery_point = sei_message(6, bytes("d0"));

TEST(InspectSei, ShowsMessagesInAMessage) {
    const std::string stream = sei_unit(nest_of(sei_message(355, bytes("aabb")) + recovery_point));
    const std::string zero_bit = "    nesting_zero_bit                                  0\n";
    EXPECT_EQ(
        run_on(stream, {"dump"}).out,
        "rules: standard\n"
        "unit 0 at 4: PREFIX_SEI_NUT, 14 bytes, layer 0, temporal id 0\n"
        "  scalable_nesting                                    (payload type 133, 9 bytes)\n"
        "    bitstream_subset_flag                             0\n"
        "    nesting_op_flag                                   0\n"
        "    all_layers_flag                                   1\n" +
            zero_bit + zero_bit + zero_bit + zero_bit + zero_bit +
            "    sei_message[0]                                    (payload type 355, 2 "
            "bytes)\n"
            "      payload                                         aabb\n"
            "    sei_message[1]                                    (payload type 6, 1 bytes)\n"
            "      recovery_point\n"
            "        recovery_poc_cnt                              0\n"
            "        exact_match_flag                              1\n"
            "        broken_link_flag                              0\n"
            "\n");
    EXPECT_EQ(first_message(stream).dump(),
              R"({"payload_type":133,"payload_size":9,"name":"scalable_nesting",)"
              R"("bitstream_subset_flag":0,"nesting_op_flag":0,"all_layers_flag":1,)"
              R"("nesting_zero_bit":[0,0,0,0,0],"sei_message":[)"
              R"({"payload_type":355,"payload_size":2,"name":"payload_type_355","payload":"aabb"},)"
              R"({"payload_type":6,"payload_size":1,"name":"recovery_point","recovery_point":)"
              R"({"recovery_poc_cnt":0,"exact_match_flag":1,"broken_link_flag":0}}]})");
    const std::string nested = "scalable_nesting.sei_message";
    EXPECT_EQ(trace_lines(nested, stream),
              (list{nested + "[0].ff_byte f(8) 255", nested + "[0].last_payload_type_byte u(8) 100",
                    nested + "[0].last_payload_size_byte u(8) 2", nested + "[0].payload bytes aabb",
                    nested + "[1].last_payload_type_byte u(8) 6",
                    nested + "[1].last_payload_size_byte u(8) 1",
                    nested + "[1].recovery_point.recovery_poc_cnt se(v) 0",
                    nested + "[1].recovery_point.exact_match_flag u(n) 1",
                    nested + "[1].recovery_point.broken_link_flag u(n) 0",
                    nested + "[1].recovery_point.payload_bit_equal_to_one f(1) 1",
                    nested + "[1].recovery_point.payload_bit_equal_to_zero f(1) 0",
                    nested + "[1].recovery_point.payload_bit_equal_to_zero f(1) 0",
                    nested + "[1].recovery_point.payload_bit_equal_to_zero f(1) 0",
                    nested + "[1].recovery_point.payload_bit_equal_to_zero f(1) 0"}));
}

// A size of 255 bytes and more.
TEST(InspectSei, ShowsTheSizeOfALargeMessageInAMessage) {
    const std::string large(300, 'a');
    const std::string stream = sei_unit(nest_of(sei_message(255, large)));
    EXPECT_EQ(dump_lines("sei_message", stream),
              list{"sei_message[0] (payload type 255, 300 bytes)"});
    EXPECT_EQ(first_message(stream).at("sei_message").at(0).at("payload_size"), 300);
}

// Four messages around it are read, and the fifth one is kept as bytes.
TEST(InspectSei, KeepsTheBytesOfAMessageInFiveOthers) {
    const std::string in_three = nest_of(nest_of(nest_of(recovery_point)));
    const std::string stream = sei_unit(nest_of(in_three));
    EXPECT_EQ(dump_lines("recovery_poc_cnt", stream), list{"recovery_poc_cnt 0"});

    const std::string deeper = sei_unit(nest_of(nest_of(nest_of(in_three))));
    EXPECT_EQ(dump_lines("recovery_poc_cnt", deeper), list());
    EXPECT_EQ(dump_lines("payload ", deeper), list{"payload 200601d0"});
    nlohmann::ordered_json message = first_message(deeper);
    for (int depth = 0; depth < 4; ++depth) {
        message = message.at("sei_message").at(0).at("scalable_nesting");
    }
    EXPECT_EQ(message.at("sei_message").at(0).dump(),
              R"({"payload_type":133,"payload_size":4,"name":"scalable_nesting",)"
              R"("payload":"200601d0"})");
    const outcome result = run_on(deeper, {"dump"});
    EXPECT_EQ(result.status, 1);
    EXPECT_NE(result.err.find("nesting_depth"), std::string::npos);
}

// The light level has one byte of four; the recovery point behind it is read.
TEST(InspectSei, TellsAMessageInAMessageThatCannotBeRead) {
    const std::string stream = sei_unit(nest_of(sei_message(144, bytes("03")) + recovery_point));
    const outcome result = run_on(stream, {"dump"});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err,
              "kovran: standard input: unit 0 at 4: SEI message scalable_nesting was read, but the "
              "data ends before the end of "
              "sei_message[0].content_light_level_info.max_content_light_level at bit 40\n");
    EXPECT_EQ(dump_lines("payload ", stream), list{"payload 03"});
    EXPECT_EQ(dump_lines("recovery_poc_cnt", stream), list{"recovery_poc_cnt 0"});
    const nlohmann::ordered_json unit = json_of(stream);
    EXPECT_EQ(unit.at("syntax").at("sei_message").at(0).at("sei_message").size(), 2U);
    EXPECT_EQ(unit.at("fault").dump(),
              R"({"kind":"data_ended","element":"sei_message[0].sei_message[0].)"
              R"(content_light_level_info.max_content_light_level","bit":40})");
    EXPECT_EQ(unit.at("faults").size(), 1U);
    EXPECT_EQ(run_on(stream, {"info"}).status, 1);
    EXPECT_EQ(run_on(stream, {"trace"}).status, 1);
}

TEST(InspectSei, TellsAMessageInAMessageThatIsTooLong) {
    const std::string stream = sei_unit(nest_of(recovery_point + bytes("0605d0")));
    const outcome result = run_on(stream, {"dump"});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err,
              "kovran: standard input: unit 0 at 4: SEI message scalable_nesting was read, but "
              "sei_message[1].payloadSize at bit 64 is 5; allowed: 0 to 1\n");
    EXPECT_EQ(dump_lines("sei_message", stream),
              (list{"sei_message[0] (payload type 6, 1 bytes)",
                    "sei_message[1] (payload type 6, 5 bytes)"}));
    EXPECT_EQ(dump_lines("payload ", stream), list{"payload d0"});
}

// A size without its last byte takes all of the nest with it.
TEST(InspectSei, KeepsTheBytesOfANestWhoseFramingIsCutOff) {
    const std::string stream = sei_unit(nest_of(recovery_point + bytes("06ff")));
    EXPECT_EQ(run_on(stream, {"dump"}).status, 1);
    EXPECT_EQ(dump_lines("payload ", stream), list{"payload 200601d006ff"});
    EXPECT_EQ(dump_lines("sei_message", stream), list());
    EXPECT_EQ(first_message(stream).at("payload"), "200601d006ff");
}

// ---- Messages that are not as they should be

TEST(InspectSei, TellsAMessageInTheWrongKindOfUnit) {
    const auto faults = [](unsigned int type, h265_nal_unit_type unit) {
        return run_on(sei_unit(sei_message(type, bytes("ff")), unit), {"dump"}).err;
    };
    EXPECT_EQ(faults(47, SUFFIX_SEI_NUT),
              "kovran: standard input: unit 0 at 4: SEI message display_orientation stands in a "
              "suffix SEI unit, where its type is reserved\n");
    EXPECT_EQ(faults(47, PREFIX_SEI_NUT), "");
    EXPECT_EQ(faults(3, SUFFIX_SEI_NUT), "");
    EXPECT_EQ(faults(3, PREFIX_SEI_NUT), "");
    EXPECT_EQ(faults(100, SUFFIX_SEI_NUT), "");
}

// The trailing bits are taken for the second of five bytes.
TEST(InspectSei, KeepsTheBytesOfATruncatedMessage) {
    const std::string stream = bytes("000001 4e01 9005 03 80");
    const outcome result = run_on(stream, {"dump"});
    EXPECT_EQ(result.status, 1);
    EXPECT_NE(result.err.find("SEI message content_light_level_info is truncated: 2 of 5 bytes are "
                              "present\n"),
              std::string::npos);
    EXPECT_EQ(dump_lines("payload ", stream), list{"payload 0380"});
    EXPECT_EQ(dump_lines("=", stream), list());
    EXPECT_EQ(first_message(stream).at("payload"), "0380");
    EXPECT_FALSE(first_message(stream).contains("meaning"));
}

// Only buffering periods, picture timing and active parameter sets are parsed by them.
TEST(InspectSei, HasThePayloadOfOtherMessagesByItsOwnRules) {
    const std::string stream =
        sei_unit(sei_message(144, bytes("03e80190")) + nest_of(recovery_point));
    EXPECT_EQ(run_on(stream, {"dump", "--rules", "own"}).out,
              "rules: own\n"
              "unit 0 at 4: PREFIX_SEI_NUT, 15 bytes, layer 0, temporal id 0\n"
              "  content_light_level_info                            (payload type 144, 4 bytes)\n"
              "    payload                                           03e80190\n"
              "  scalable_nesting                                    (payload type 133, 4 bytes)\n"
              "    payload                                           200601d0\n"
              "\n");
    const std::string json = run_on(stream, {"dump", "--json", "--rules", "own"}).out;
    EXPECT_EQ(json.find("meaning"), std::string::npos);
    EXPECT_NE(json.find(R"("name":"scalable_nesting","payload":"200601d0"})"), std::string::npos);
}

// The numbers of those three types are reserved in suffix units.
TEST(InspectSei, HasThePayloadOfSuffixMessagesByItsOwnRules) {
    for (const unsigned int type : {0U, 1U, 129U}) {
        const std::string stream = sei_unit(sei_message(type, bytes("a5b6")), SUFFIX_SEI_NUT);
        const outcome result = run_on(stream, {"trace", "--rules", "own"});
        EXPECT_EQ(result.status, 0) << result.err;
        EXPECT_NE(result.out.find("a5b6"), std::string::npos) << type;
    }
}

}  // namespace
}  // namespace kovran::test
