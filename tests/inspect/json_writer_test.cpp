#include "output/json_writer.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "input/file_descriptor.h"
#include "output/output.h"
#include "temporary_folder.h"

namespace kovran::inspect {
namespace {

using json = nlohmann::ordered_json;

template <class Write>
std::string written(Write write) {
    const test::temporary_folder folder;
    const std::string path = folder.file("json");
    output lines(file_descriptor::create(path, path));
    write(lines);
    lines.finish();
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::string text_of(const json& value) {
    return written([&value](output& lines) { write_json(value, lines); });
}

TEST(JsonWriter, WritesValuesOfEveryKind) {
    EXPECT_EQ(text_of(nullptr), "null");
    EXPECT_EQ(text_of(-7), "-7");
    EXPECT_EQ(text_of(true), "true");
    EXPECT_EQ(text_of("a"), "\"a\"");
    EXPECT_EQ(text_of(json::array({1, nullptr, json::array({"b"})})), "[1,null,[\"b\"]]");
    EXPECT_EQ(text_of({{"b", 1}, {"a", {{"c", 2}}}}), R"({"b":1,"a":{"c":2}})");
}

TEST(JsonWriter, WritesWhatIsEmpty) {
    EXPECT_EQ(text_of(json::array()), "[]");
    EXPECT_EQ(text_of(json::object()), "{}");
    EXPECT_EQ(text_of({{"a", json::array()}, {"b", json::object()}}), R"({"a":[],"b":{}})");
    EXPECT_EQ(text_of(json_of_bytes(nullptr, nullptr)), "\"\"");
}

TEST(JsonWriter, WritesBytesInHexadecimal) {
    const std::vector<unsigned char> bytes = {0x00, 0x9F, 0xFF};
    EXPECT_EQ(text_of({json_of_bytes(bytes.data(), bytes.data() + 3), 1}), R"(["009fff",1])");
    const std::vector<unsigned char> many(10001, 0xA5);
    std::string digits = "\"";
    for (std::size_t i = 0; i < many.size(); ++i) {
        digits += "a5";
    }
    EXPECT_EQ(text_of(json_of_bytes(many.data(), many.data() + many.size())), digits + '"');
}

// U+0080, U+00E9, U+20AC and U+1F600; a byte that is not UTF-8; keys, too.
TEST(JsonWriter, WritesOnlyAscii) {
    EXPECT_EQ(text_of("\xc2\x80\xc3\xa9\xe2\x82\xac\xf0\x9f\x98\x80\xff\x7f\n"),
              R"("\u0080\u00e9\u20ac\ud83d\ude00\ufffd\u007f\n")");
    EXPECT_EQ(text_of({{"\xc3\xa9\"", 1}}), R"({"\u00e9\"":1})");
}

TEST(JsonWriter, LeavesAnObjectOpen) {
    EXPECT_EQ(written([](output& lines) {
                  write_open_object({{"a", 1}, {"b", "c"}}, lines);
              }),
              R"({"a":1,"b":"c")");
    EXPECT_EQ(written([](output& lines) { write_open_object(json::object(), lines); }), "{");
}

}  // namespace
}  // namespace kovran::inspect
