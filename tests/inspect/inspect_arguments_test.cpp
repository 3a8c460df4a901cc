#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "program.h"

namespace kovran::test {
namespace {

void expect_refusal(const std::vector<std::string>& arguments, const std::string& reason) {
    const outcome result = run(arguments);
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err, "kovran: " + reason + "\nRun kovran --help for more information.\n");
}

TEST(InspectArguments, AreRefusedWithAReason) {
    expect_refusal({}, "nothing to do");
    expect_refusal({"walk"}, "The following argument was not expected: walk");
    expect_refusal({"--json"}, "The following argument was not expected: --json");
    expect_refusal({"nals"}, "FILE is required");
    expect_refusal({"nals", "a", "b"}, "The following argument was not expected: b");
    expect_refusal({"nals", "a", "--frames"}, "The following argument was not expected: --frames");
    expect_refusal({"nals", "a", "--format", "mp4"},
                   "--format: mp4 not in {annexb,length8,length16,length24,length32}");
    expect_refusal({"nals", "a", "--color", "blue"}, "--color: blue not in {auto,always,never}");
    expect_refusal({"nals", "a", "--type", "I_FRAME"}, "--type: 'I_FRAME' is no NAL unit type");
    expect_refusal({"nals", "a", "--type", "64"}, "--type: '64' is no NAL unit type");
    expect_refusal({"nals", "a", "--type", "1,-1"}, "--type: '-1' is no NAL unit type");
    expect_refusal({"nals", "a", "--limit", "-1"}, "--limit: '-1' is no number of NAL units");
    expect_refusal({"nals", "a", "--limit", "many"}, "--limit: 'many' is no number of NAL units");
    expect_refusal({"nals", "a", "--limit", "18446744073709551616"},
                   "--limit: '18446744073709551616' is no number of NAL units");
    expect_refusal({"copy", "a"}, "OUT is required");
    expect_refusal({"copy", "a", "b", "c"}, "The following argument was not expected: c");
    expect_refusal({"copy", "a", "b", "--to", "mkv"},
                   "--to: mkv not in {annexb,length8,length16,length24,length32}");
}

TEST(InspectArguments, HelpIsNoFailure) {
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{"--help"}, {"-h"}, {"nals", "--help"}, {"copy", "--help"}}) {
        const outcome result = run(arguments);
        EXPECT_EQ(result.status, 0);
        EXPECT_EQ(result.err, "");
        EXPECT_NE(result.out.find("Usage: kovran"), std::string::npos);
    }
    EXPECT_NE(run({"--help"}).out.find("Exit status"), std::string::npos);
}

TEST(InspectArguments, VersionIsShown) {
    const outcome result = run({"--version"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out.rfind("kovran ", 0), 0U);
    EXPECT_EQ(result.out.back(), '\n');
}

TEST(InspectArguments, AFileMayBeCalledAsAVerb) {
    const outcome result = run({"copy", "nals", "copy"});
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.err, "kovran: nals: No such file or directory\n");
}

}  // namespace
}  // namespace kovran::test
