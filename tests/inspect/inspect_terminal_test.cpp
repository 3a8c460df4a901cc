#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "byte_string.h"
#include "process/printable.h"
#include "program.h"
#include "readings.h"
#include "temporary_folder.h"

namespace kovran::test {
namespace {

const char escape = '\x1b';

bool has_colour(const outcome& result) {
    return result.out.find(escape) != std::string::npos;
}

program show_on_terminal(const std::vector<std::string>& options) {
    std::vector<std::string> arguments = {"nals", stream_path("mainstill")};
    arguments.insert(arguments.end(), options.begin(), options.end());
    program inspector(arguments);
    inspector.environment("TERM=xterm").environment("NO_COLOR=").output_on_terminal();
    return inspector;
}

// 65 MiB, and a NAL unit with a fault at its end.
std::string write_large_stream(const temporary_folder& folder) {
    constexpr std::size_t mebibyte = std::size_t{1} << 20;
    const std::string unit = bytes("000001 0201") + std::string(mebibyte, '\x55');
    std::string stream;
    for (int i = 0; i < 65; ++i) {
        stream += unit;
    }
    return folder.write("large", stream + bytes("000001 0200 80"));
}

TEST(InspectTerminal, HasColours) {
    const outcome result = show_on_terminal({}).run();
    EXPECT_EQ(result.status, 0);
    EXPECT_NE(result.out.find("\x1b[36m32 VPS_NUT       \x1b[0m"), std::string::npos);
    EXPECT_NE(result.out.find("\x1b[32m20 IDR_N_LP      \x1b[0m"), std::string::npos);
}

TEST(InspectTerminal, HasNoColoursWhereTheyAreNotWanted) {
    EXPECT_FALSE(has_colour(show_on_terminal({"--color", "never"}).run()));
    EXPECT_FALSE(has_colour(show_on_terminal({"--json"}).run()));
    EXPECT_FALSE(has_colour(show_on_terminal({}).environment("NO_COLOR=1").run()));
    EXPECT_FALSE(has_colour(show_on_terminal({}).environment("TERM=dumb").run()));
    EXPECT_TRUE(
        has_colour(show_on_terminal({"--colour", "always"}).environment("NO_COLOR=1").run()));
}

TEST(InspectTerminal, ElsewhereHasColoursOnlyOnDemand) {
    const std::string path = stream_path("mainstill");
    EXPECT_FALSE(has_colour(run({"nals", path})));
    EXPECT_TRUE(has_colour(run({"nals", "--color", "always", path})));
}

TEST(InspectTerminal, ShowsProgressThroughALargeFile) {
    const temporary_folder folder;
    const std::string path = write_large_stream(folder);
    const outcome result = program({"nals", path}).errors_on_terminal().run();
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err.rfind("\r  0 % of 65 MiB", 0), 0U);
    const std::string fault =
        "\r\x1b[Kkovran: " + path + ": unit 65 at 68157768: nuh_temporal_id_plus1 is 0\r\n";
    EXPECT_NE(result.err.find(fault), std::string::npos);
    const std::string after_fault = result.err.substr(result.err.find(fault) + fault.size());
    if (!after_fault.empty()) {
        EXPECT_EQ(after_fault.substr(after_fault.size() - 4), "\r\x1b[K");
    }
    EXPECT_EQ(result.out.find('%'), std::string::npos);
    EXPECT_EQ(result.out.find('\r'), std::string::npos);
}

TEST(InspectTerminal, ShowsNoProgressElsewhere) {
    const temporary_folder folder;
    const std::string path = write_large_stream(folder);
    const std::string fault = ": unit 65 at 68157768: nuh_temporal_id_plus1 is 0\n";
    EXPECT_EQ(run({"nals", path}).err, "kovran: " + path + fault);
}

TEST(InspectTerminal, ShowsNoProgressThroughASmallFile) {
    program inspector({"nals", stream_path("mainstill")});
    EXPECT_EQ(inspector.errors_on_terminal().run().err, "");
}

// Of C0 and DEL, of C1 alone, in UTF-8 and in what only looks like UTF-8.
struct raw_and_shown {
    std::string raw;
    std::string shown;
};
const raw_and_shown control_characters[] = {
    {"\x1b[2J\r\n\x7f", "\\x1b[2J\\x0d\\x0a\\x7f"},
    {"\x9b", "\\x9b"},
    {"\xc2\x9b", "\xc2\\x9b"},
    {"\xa0\x9b", "\xa0\\x9b"},                    // no lead byte before it
    {"\xe9\x9b.", "\xe9\\x9b."},                  // one byte short
    {"\xc1\x9b", "\xc1\\x9b"},                    // U+005B in a byte too many
    {"\xe0\x82\x9b", "\xe0\\x82\\x9b"},           // U+009B in a byte too many
    {"\xf0\x80\x82\x9b", "\xf0\\x80\\x82\\x9b"},  // and in two
    {"\xf4\x90\x80\x9b", "\xf4\\x90\\x80\\x9b"},  // above U+10FFFF
    {"\xc3\x9b\xe2\x80\x9b\xf0\x9f\x98\x80", "\xc3\x9b\xe2\x80\x9b\xf0\x9f\x98\x80"},
};

TEST(InspectTerminal, ControlCharactersAreEscapedWhereverTheyStand) {
    for (const raw_and_shown& text : control_characters) {
        EXPECT_EQ(inspect::printable(text.raw), text.shown);
    }
}

TEST(InspectTerminal, MessagesOfEveryKindEscapeControlCharacters) {
    const temporary_folder folder;
    const std::string foreign = bytes("1a45dfa3 a3 4286 81 01");
    const std::string fault = bytes("000001 4001 000001 4400 80");
    const raw_and_shown text = {"\x1b[2J\n\x7f\x9b", "\\x1b[2J\\x0a\\x7f\\x9b"};
    const auto expect_shown = [&](const outcome& result, std::string before,
                                  const std::string& behind) {
        before += text.shown;
        before += behind;
        EXPECT_NE(result.err.find(before), std::string::npos) << result.err;
        EXPECT_EQ((result.err + result.out).find('\x1b'), std::string::npos);
    };
    const std::string missing = folder.path() + "/missing" + text.raw;
    const std::string slash = folder.path() + '/';
    expect_shown(run({"info", missing}), slash + "missing", ": No such file");
    expect_shown(run({"copy", missing, folder.file("out")}), "missing", ": No such file");
    expect_shown(run({"copy", stream_path("mainstill"), missing + "/out"}), "missing",
                 "/out: No such file");

    const std::string in = folder.write("in" + text.raw, fault);
    for (const char* const verb : {"info", "nals", "dump", "trace", "differences"}) {
        expect_shown(run({verb, in}), slash + "in", ": unit 1 at 8: ");
    }
    expect_shown(run({"copy", in, in}), slash + "in", ": is also the input file");
    expect_shown(run({"nals", in, "--nal", "7"}), slash + "in", ": there is no NAL unit 7");
    const std::string small = folder.write("out" + text.raw, "kept");
    expect_shown(program({"copy", stream_path("hm_ra16"), small}).file_size(600).run(),
                 slash + "out", ": File too large; ");
    expect_shown(program({"copy", stream_path("hm_ra16"), small}).file_size(600).run(),
                 "; " + slash + "out", " is unchanged");
    const std::string video = folder.write("video" + text.raw, foreign);
    expect_shown(run({"info", video}), slash + "video", ": this is a Matroska");
    expect_shown(run({"info", video}), "ffmpeg -i '" + slash + "video", "' -c copy");

    expect_shown(run({text.raw}), "was not expected: ", "\n");
    expect_shown(run({"nals", "a", "--x" + text.raw}), "was not expected: --x", "\n");
    for (const char* const option : {"--format", "--color", "--type", "--layer", "--limit"}) {
        expect_shown(run({"nals", "a", option, 'x' + text.raw}), "x", "");
    }
    expect_shown(run({"info", "a", "--rules", 'x' + text.raw}), "--rules: x", " not in");
    expect_shown(run({"copy", "a", "b", "--to", 'x' + text.raw}), "--to: x", " not in");
    expect_shown(run({"--version=x" + text.raw}), "x", "");
}

// An SEI message with text of any kind (user_data_unregistered), an unknown one, and one in a unit
// of no known type.
TEST(InspectTerminal, ResultsHaveNoControlCharacters) {
    const std::string text = "\x1b[2J\r\x7f\x9b\xc2\x9b";
    const std::string stream = bytes("000001 4e01 05 19") + std::string(16, 'u') + text +
                               bytes("80 000001 4e01 c8 09") + text + bytes("80 000001 7c01") +
                               text + bytes("000001 4201") + text;
    for (const std::vector<std::string>& arguments : {std::vector<std::string>{"info"},
                                                      {"nals"},
                                                      {"nals", "--json"},
                                                      {"dump"},
                                                      {"dump", "--json"},
                                                      {"dump", "--rules", "own"},
                                                      {"trace"},
                                                      {"differences", "--all"}}) {
        std::vector<std::string> with_stream = arguments;
        with_stream.emplace_back("-");
        const outcome result = program(with_stream).input(stream).run();
        EXPECT_NE(result.out, "");
        for (const char letter : result.out + result.err) {
            const auto byte = static_cast<unsigned char>(letter);
            EXPECT_TRUE(letter == '\n' || (byte >= 0x20 && byte < 0x7f)) << int{byte};
        }
    }
}

}  // namespace
}  // namespace kovran::test
