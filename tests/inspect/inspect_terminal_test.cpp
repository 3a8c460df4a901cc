#include <gtest/gtest.h>

#include <string>

#include "byte_string.h"
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

}  // namespace
}  // namespace kovran::test
