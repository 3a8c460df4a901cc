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
    expect_refusal({}, "a command is missing: info, nals, dump, trace, differences or copy");
    expect_refusal({"walk"}, "The following argument was not expected: walk");
    expect_refusal({"--json"}, "The following argument was not expected: --json");
    expect_refusal({"nals"}, "FILE is required");
    expect_refusal({"nals", "a", "b"}, "The following argument was not expected: b");
    expect_refusal({"nals", "a", "--frames"}, "The following argument was not expected: --frames");
    expect_refusal({"nals", "a", "--format", "mp4"},
                   "--format: mp4 not in {annexb,length8,length16,length24,length32}");
    expect_refusal({"nals", "a", "--color", "blue"}, "--color: blue not in {auto,always,never}");
    expect_refusal({"nals", "a", "--limit", "-1"}, "--limit: '-1' is not a number of NAL units");
    expect_refusal({"nals", "a", "--limit", "many"},
                   "--limit: 'many' is not a number of NAL units");
    expect_refusal({"nals", "a", "--limit", "18446744073709551616"},
                   "--limit: '18446744073709551616' is not a number of NAL units");
    expect_refusal({"trace", "a", "--layer", "64"}, "--layer: '64' is not a layer; use 0 to 63");
    expect_refusal({"nals", "a", "--layer", "base"}, "--layer: 'base' is not a layer; use 0 to 63");
    expect_refusal({"copy", "a"}, "OUT is required");
    expect_refusal({"copy", "a", "b", "c"}, "The following argument was not expected: c");
    expect_refusal({"copy", "a", "b", "--to", "mkv"},
                   "--to: mkv not in {annexb,length8,length16,length24,length32}");
}

TEST(InspectArguments, TypesAreRefusedWithWhatIsNear) {
    const auto expect_reason = [](const std::string& type, const std::string& reason) {
        expect_refusal({"nals", "a", "--type", type}, "--type: '" + reason);
    };
    const std::string none =
        " is not a NAL unit type; use 0 to 63 or a name such as SPS or IDR_W_RADL";
    expect_reason("I_FRAME", "I_FRAME'" + none);
    expect_reason("64", "64'" + none);
    expect_reason("1,-1", "-1'" + none);
    expect_reason(std::string(1000, 'X'), std::string(1000, 'X') + '\'' + none);
    expect_reason("IDR", "IDR' could be IDR_W_RADL or IDR_N_LP");
    expect_reason("sei", "sei' could be PREFIX_SEI_NUT or SUFFIX_SEI_NUT");
    expect_reason("BLA_W", "BLA_W' could be BLA_W_LP or BLA_W_RADL");
    expect_reason("UNSPEC",
                  "UNSPEC' could be UNSPEC48, UNSPEC49, UNSPEC50, UNSPEC51, UNSPEC52, "
                  "UNSPEC53, ...");
    expect_reason("TRIAL_R", "TRIAL_R' is not a NAL unit type; did you mean TRAIL_R?");
    expect_reason("SPSS", "SPSS' is not a NAL unit type; did you mean SPS_NUT?");
    expect_reason("IDR_W_RADLS", "IDR_W_RADLS' is not a NAL unit type; did you mean IDR_W_RADL?");
}

TEST(InspectArguments, TypesAreNumbersUpTo63OrTheirNames) {
    for (const char* const type :
         {"0", "63", "032", "sps", "Sps_Nut", "UNSPEC63", "radl_n", "cra"}) {
        EXPECT_EQ(run({"nals", "/dev/null", "--format", "length8", "--type", type}).status, 1)
            << type;
    }
    for (const char* const type : {"64", "-1", "1.0", "0x20", "", " 1", "4294967297"}) {
        EXPECT_EQ(run({"nals", "/dev/null", "--format", "length8", "--type", type}).status, 2)
            << type;
    }
}

TEST(InspectArguments, LayersAreNumbersUpTo63) {
    // Without units there is no layer either, which is told.
    for (const char* const layer : {"0", "63"}) {
        EXPECT_EQ(run({"nals", "/dev/null", "--format", "length8", "--layer", layer}).err,
                  "kovran: /dev/null: at 0: no NAL unit found\n"
                  "kovran: /dev/null: there is no NAL unit of layer " +
                      std::string(layer) + "; the stream has no NAL units\n");
    }
    for (const char* const layer : {"64", "-1", "1x", ""}) {
        expect_refusal({"nals", "a", "--layer", layer},
                       "--layer: '" + std::string(layer) + "' is not a layer; use 0 to 63");
    }
}

TEST(InspectArguments, RulesAreStandardUnlessOwnAreAskedFor) {
    const auto first_line = [](const std::vector<std::string>& options) {
        std::vector<std::string> arguments = {"dump", "/dev/null", "--format", "length8"};
        arguments.insert(arguments.end(), options.begin(), options.end());
        return run(arguments).out;
    };
    EXPECT_EQ(first_line({}), "rules: standard\n");
    EXPECT_EQ(first_line({"--rules", "standard"}), "rules: standard\n");
    EXPECT_EQ(first_line({"--rules", "own"}), "rules: own\n");
    expect_refusal({"dump", "a", "--rules", "mine"}, "--rules: mine not in {standard,own}");
}

TEST(InspectArguments, HelpIsNoFailure) {
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{"--help"}, {"-h"}, {"nals", "--help"}, {"copy", "--help"}}) {
        const outcome result = run(arguments);
        EXPECT_EQ(result.status, 0);
        EXPECT_EQ(result.err, "");
        EXPECT_NE(result.out.find("Usage: kovran"), std::string::npos);
    }
    EXPECT_NE(
        run({"--help"})
            .out.find("Exit status: 0 success, 1 the stream has faults, 2 usage or I/O error."),
        std::string::npos);
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
