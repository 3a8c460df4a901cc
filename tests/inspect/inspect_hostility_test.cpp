#include <gtest/gtest.h>

#include <array>
#include <csignal>
#include <cstddef>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "byte_string.h"
#include "elements/unit_reader.h"
#include "input/file_descriptor.h"
#include "input/input.h"
#include "output/output.h"
#include "output/stream_summary.h"
#include "output/syntax_json.h"
#include "output/syntax_tree.h"
#include "output/trace_lines.h"
#include "program.h"
#include "readings.h"
#include "temporary_folder.h"
#include "units/nal_rewriter.h"
#include "units/nal_walk.h"

namespace kovran::test {
namespace {
// What each verb does where there is nothing to read, nowhere to write, or nothing but noise.

using arguments = std::vector<std::string>;

// Each way to show a stream, without the stream.
const std::array<arguments, 10> verbs = {{{"info"},
                                          {"info", "--rules", "own"},
                                          {"nals"},
                                          {"nals", "--json"},
                                          {"dump"},
                                          {"dump", "--rules", "own"},
                                          {"dump", "--json"},
                                          {"trace"},
                                          {"trace", "--rules", "own"},
                                          {"differences"}}};

arguments with(arguments verb, std::initializer_list<std::string> more) {
    verb.insert(verb.end(), more);
    return verb;
}

std::string described(const arguments& all) {
    std::string text;
    for (const std::string& argument : all) {
        text += argument + ' ';
    }
    return text;
}

TEST(InspectHostility, WrongArgumentsAreRefusedByEveryVerb) {
    const std::string path = stream_path("hm_still");
    for (const arguments& verb : verbs) {
        for (const arguments& wrong :
             {verb, with(verb, {path, path}), with(verb, {path, "--format", "mp4"}),
              with(verb, {path, "--format"}), with(verb, {path, "--nothing"}),
              with(verb, {path, std::string(100000, 'x')})}) {
            const outcome result = run(wrong);
            EXPECT_EQ(result.status, 2) << described(wrong).substr(0, 100);
            EXPECT_EQ(result.out, "");
            EXPECT_EQ(result.err.rfind("kovran: ", 0), 0U);
        }
    }
}

TEST(InspectHostility, FilesThatCannotBeReadAreFailuresOfEveryVerb) {
    const temporary_folder folder;
    const std::string missing = folder.file("missing");
    for (const arguments& verb : verbs) {
        SCOPED_TRACE(described(verb));
        const outcome of_folder = run(with(verb, {folder.path()}));
        EXPECT_EQ(of_folder.status, 2);
        EXPECT_EQ(of_folder.err, "kovran: " + folder.path() + ": Is a directory\n");
        const outcome of_missing = run(with(verb, {missing}));
        EXPECT_EQ(of_missing.status, 2);
        EXPECT_EQ(of_missing.out, "");
        EXPECT_EQ(of_missing.err, "kovran: " + missing + ": No such file or directory\n");
    }
}

TEST(InspectHostility, AStreamWithoutUnitsIsAFaultForEveryVerb) {
    const temporary_folder folder;
    const std::string none = folder.write("none", "no video");
    for (const arguments& verb : verbs) {
        SCOPED_TRACE(described(verb));
        const outcome result = run(with(verb, {none}));
        EXPECT_EQ(result.status, 1);
        EXPECT_EQ(result.err, "kovran: " + none + ": at 0: no NAL unit found\n");
    }
    const outcome copied = run({"copy", none, folder.file("copied")});
    EXPECT_EQ(copied.status, 1);
    EXPECT_EQ(copied.err, "kovran: " + none + ": at 0: no NAL unit found\n");
    EXPECT_EQ(read_file(folder.file("copied")), "");
}

TEST(InspectHostility, AFullDiskIsAFailureOfEveryVerb) {
    for (const arguments& verb : verbs) {
        SCOPED_TRACE(described(verb));
        const outcome result =
            program(with(verb, {stream_path("hm_still")})).output_to("/dev/full").run();
        EXPECT_EQ(result.status, 2);
        EXPECT_EQ(result.err, "kovran: standard output: No space left on device\n");
    }
}

// As of other programs in a pipeline that ends early.
TEST(InspectHostility, APipeThatClosesEndsEveryVerbWithoutAWord) {
    const std::string path = stream_path("hm_still");
    std::vector<arguments> all(verbs.begin(), verbs.end());
    all.push_back({"copy", "--to", "length32"});
    for (const arguments& verb : all) {
        SCOPED_TRACE(described(verb));
        const arguments whole = verb[0] == "copy" ? with(verb, {path, "-"}) : with(verb, {path});
        const outcome result = program(whole).output_into_closed_pipe().run();
        EXPECT_EQ(result.status, 128 + SIGPIPE);
        EXPECT_EQ(result.err, "");
    }
}

// Every message is about the stream, and the exit status says whether there was one.
void expect_an_answer(const outcome& result) {
    EXPECT_EQ(result.status, result.err.empty() ? 0 : 1);
    std::size_t begin = 0;
    for (std::size_t end = 0; (end = result.err.find('\n', begin)) != std::string::npos;
         begin = end + 1) {
        const std::string line = result.err.substr(begin, end - begin);
        EXPECT_EQ(line.rfind("kovran: standard input: ", 0), 0U) << line;
    }
}

TEST(InspectHostility, RandomBytesGetAnAnswerFromEveryVerb) {
    std::mt19937 random(20240607);
    const std::string alphabet = bytes("00000000000001010203404244464e5080c0ff");
    for (const char* const format : {"annexb", "length8", "length16", "length24", "length32"}) {
        for (const bool dense : {false, true}) {
            std::string stream;
            for (int i = 0; i < 3000; ++i) {
                stream += dense ? alphabet[random() % alphabet.size()]
                                : static_cast<char>(random() & 0xFF);
            }
            for (const arguments& verb : verbs) {
                SCOPED_TRACE(described(verb) + format + (dense ? " dense" : ""));
                expect_an_answer(
                    program(with(verb, {"-", "--format", format})).input(stream).run());
            }
            SCOPED_TRACE(format);
            expect_an_answer(program({"copy", "-", "-", "--from", format, "--to", "length32"})
                                 .input(stream)
                                 .run());
        }
    }
}

// ---- Streams that end early

enum class form { tree, json, trace, summary, copy };

// The text up to each of these places.
std::vector<std::string> split(const std::string& text, const std::vector<std::size_t>& ends) {
    std::vector<std::string> parts;
    std::size_t begin = 0;
    for (const std::size_t end : ends) {
        parts.push_back(text.substr(begin, end - begin));
        begin = end;
    }
    return parts;
}

// What is shown of each unit.
std::vector<std::string> units_shown(const std::string& path, form shown) {
    using namespace inspect;
    const auto stream = open_input(path);
    const auto walk = walk_nal_units(*stream, nalfmt_annex_b);
    unit_reader reader(rule_set::standard);
    nal_rewriter rewriter(nalfmt_annex_b, nalfmt_annex_b);
    stream_summary summary(rule_set::standard);
    const temporary_folder folder;
    const std::string text = folder.file("text");
    output lines(file_descriptor::create(text, text));
    std::vector<std::size_t> ends;
    nal_unit unit;
    while (walk->next(unit)) {
        if (!unit.readable) {
            continue;
        }
        syntax_tree tree(lines);
        trace_lines trace(reader.payload(), lines);
        switch (shown) {
            case form::tree:
                reader.read(unit, tree);
                tree.finish();
                break;
            case form::json: {
                syntax_json json(unit, rule_set::standard, lines);
                reader.read(unit, json);
                json.finish();
                break;
            }
            case form::trace:
                reader.read(unit, trace);
                break;
            case form::summary:
                reader.read(unit, summary);
                summary.add(unit, reader.record());
                lines.write(summary.text());
                break;
            case form::copy:
                EXPECT_TRUE(rewriter.rewrite(unit));
                lines.write(rewriter.data(), rewriter.size());
                break;
        }
        lines.flush();
        ends.push_back(static_cast<std::size_t>(lines.file().status().st_size));
    }
    lines.finish();
    return split(read_file(text), ends);
}

class InspectHostilityOf : public testing::TestWithParam<form> {};

TEST_P(InspectHostilityOf, AStreamThatEndsAtAnyByteShowsTheUnitsBefore) {
    const temporary_folder folder;
    const std::string whole = read_file(stream_path("sei_everything")).substr(0, 2048);
    const std::vector<std::string> expected = units_shown(folder.write("whole", whole), GetParam());
    ASSERT_GT(expected.size(), 5U);
    for (std::size_t size = 0; size < whole.size(); ++size) {
        std::vector<std::string> shown =
            units_shown(folder.write("cut", whole.substr(0, size)), GetParam());
        if (!shown.empty()) {
            shown.pop_back();
        }
        ASSERT_LT(shown.size(), expected.size()) << size;
        const auto before = expected.begin() + static_cast<std::ptrdiff_t>(shown.size());
        ASSERT_EQ(shown, std::vector<std::string>(expected.begin(), before)) << size;
    }
}

std::string name_of(const testing::TestParamInfo<form>& info) {
    const char* const names[] = {"tree", "json", "trace", "summary", "copy"};
    return names[static_cast<int>(info.param)];
}

INSTANTIATE_TEST_SUITE_P(Forms, InspectHostilityOf,
                         testing::Values(form::tree, form::json, form::trace, form::summary,
                                         form::copy),
                         name_of);

// An SPS with one long-term picture, and a P slice of 7 bytes with num_long_term_pics 1048576, of
// which only the first begins before the data ends:
//
//     1 1 010 0101 1 1 (20 zeros)1(19 zeros)1 1000...
TEST(InspectHostility, ElementsBehindTheEndOfTheUnitAreNotShown) {
    const std::string stream = bytes(
        "000001 4001 0c01ffff01600000030090000003000003005df024"
        "000001 4201 0101600000030090000003000003005da0208105fe4930d002"
        "000001 4401 c0718012"
        "000001 0201 d2e00001000018");
    for (const arguments& verb : verbs) {
        SCOPED_TRACE(described(verb));
        const outcome result = program(with(verb, {"-"})).input(stream).run();
        EXPECT_LE(result.status, 1);  // the standard allows 16 long-term pictures
        EXPECT_LT(result.out.size(), 20000U);
    }
    const outcome dumped =
        program({"dump", "-", "--rules", "own", "--nal", "3"}).input(stream).run();
    const std::string end =
        "  num_long_term_pics                                  1048576  (not allowed here)\n"
        "  poc_lsb_lt[0]                                       8\n"
        "\n";
    EXPECT_EQ(dumped.out.substr(dumped.out.size() - end.size()), end);
}

}  // namespace
}  // namespace kovran::test
