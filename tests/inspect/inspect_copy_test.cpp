#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include <sys/stat.h>

#include "byte_string.h"
#include "nal_splitter.h"
#include "program.h"
#include "readings.h"
#include "temporary_folder.h"

namespace kovran::test {
namespace {

outcome copy(const std::string& stream, const std::string& from, const std::string& to) {
    return program({"copy", "-", "-", "--from", from, "--to", to}).input(stream).run();
}

std::string faultless_copy(const std::string& stream, const std::string& from,
                           const std::string& to) {
    const outcome result = copy(stream, from, to);
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "");
    return result.out;
}

std::vector<std::string> files_in(const temporary_folder& folder) {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder.path())) {
        names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
}

std::size_t largest_unit(const std::vector<std::string>& units) {
    std::size_t size = 0;
    for (const std::string& unit : units) {
        size = std::max(size, unit.size());
    }
    return size;
}

TEST(InspectCopy, KeepsEveryStreamAsItIs) {
    const temporary_folder folder;
    for (const std::string& name : stream_names()) {
        SCOPED_TRACE(name);
        const outcome result = run({"copy", stream_path(name), folder.file("copy")});
        EXPECT_EQ(result.status, 0);
        EXPECT_EQ(result.out, "");
        EXPECT_EQ(result.err, "");
        EXPECT_EQ(read_file(folder.file("copy")), read_file(stream_path(name)));
    }
}

TEST(InspectCopy, KeepsTheUnitsOfEveryStreamInEveryFormat) {
    std::size_t copies = 0;
    for (const std::string& name : stream_names()) {
        const std::string stream = read_file(stream_path(name));
        const std::vector<std::string> units = split_annex_b(stream);
        for (const std::size_t prefix_size : {1U, 2U, 3U, 4U}) {
            if (largest_unit(units) >> 8 * prefix_size != 0) {
                continue;
            }
            SCOPED_TRACE(name + " with lengths of " + std::to_string(prefix_size));
            const std::string format = "length" + std::to_string(prefix_size * 8);
            const std::string there = faultless_copy(stream, "annexb", format);
            EXPECT_EQ(split_length_prefixed(there, prefix_size), units);
            const std::string back = faultless_copy(there, format, "annexb");
            EXPECT_EQ(split_annex_b(back), units);
            ++copies;
        }
    }
    EXPECT_GE(copies, 3 * stream_names().size());
}

TEST(InspectCopy, WritesFourByteStartCodes) {
    EXPECT_EQ(faultless_copy(bytes("03 40010c 02 4201"), "length8", "annexb"),
              bytes("00000001 40010c 00000001 4201"));
}

TEST(InspectCopy, KeepsStartCodesOfThreeAndFourBytes) {
    EXPECT_EQ(faultless_copy(bytes("000001 40010c 00000001 420105 000000000001 440105 0000"),
                             "annexb", "annexb"),
              bytes("000001 40010c 00000001 420105 00000001 440105"));
}

TEST(InspectCopy, WritesEachLengthBigEndian) {
    const std::string stream = bytes("000001 40010c");
    EXPECT_EQ(faultless_copy(stream, "annexb", "length8"), bytes("03 40010c"));
    EXPECT_EQ(faultless_copy(stream, "annexb", "length16"), bytes("0003 40010c"));
    EXPECT_EQ(faultless_copy(stream, "annexb", "length24"), bytes("000003 40010c"));
    EXPECT_EQ(faultless_copy(stream, "annexb", "length32"), bytes("00000003 40010c"));
    EXPECT_EQ(faultless_copy(bytes("03 40010c 02 4201"), "length8", "length16"),
              bytes("0003 40010c 0002 4201"));
}

TEST(InspectCopy, KeepsEmulationPreventionBytes) {
    const std::string unit = bytes("0201 00000301 000003 00000302");
    EXPECT_EQ(faultless_copy(bytes("000001") + unit, "annexb", "length8"),
              length_prefixed({unit}, 1));
}

TEST(InspectCopy, KeepsAZeroPairAtTheEndOfThePayload) {
    const std::string stream = bytes("000001 0201 80 000003");
    EXPECT_EQ(faultless_copy(stream, "annexb", "annexb"), stream);
}

TEST(InspectCopy, CarriesOverWhatMayNotOccurInAUnit) {
    const outcome two = copy(bytes("000001 4001 07 000002 05"), "annexb", "length8");
    EXPECT_EQ(two.status, 1);
    EXPECT_EQ(two.err, "kovran: standard input: unit 0 at 3: 00 00 02 inside, at 6\n");
    EXPECT_EQ(two.out, length_prefixed({bytes("4001 07 00000302 05")}, 1));

    const outcome one = copy(bytes("08 4001 000001 c00102"), "length8", "annexb");
    EXPECT_EQ(one.status, 1);
    EXPECT_EQ(one.out, bytes("00000001 4001 00000301 c00102"));

    // The 03 is an emulation prevention byte, the first zero byte is not one of its two.
    const outcome zeros = copy(bytes("07 4001 00000003 05"), "length8", "length8");
    EXPECT_EQ(zeros.status, 1);
    EXPECT_EQ(zeros.out, length_prefixed({bytes("4001 0000030005")}, 1));

    const outcome passed_over = copy(bytes("000001 4001 000001 c001 07"), "annexb", "annexb");
    EXPECT_EQ(passed_over.status, 1);
    EXPECT_EQ(passed_over.out, bytes("000001 4001 00000301 c001 07"));
}

TEST(InspectCopy, TellsOfAZeroByteThatAnnexBDoesNotKeep) {
    const outcome lost = copy(bytes("04 40010500"), "length8", "annexb");
    EXPECT_EQ(lost.status, 1);
    EXPECT_EQ(lost.err,
              "kovran: standard input: unit 0 at 1: "
              "ends with a zero byte, which Annex B cannot keep\n");
    EXPECT_EQ(faultless_copy(bytes("04 40010500"), "length8", "length16"), bytes("0004 40010500"));
    EXPECT_EQ(faultless_copy(bytes("05 4001050000"), "length8", "annexb"),
              bytes("00000001 4001050000 03"));
}

TEST(InspectCopy, LeavesOutWhatIsNoUnit) {
    const outcome forbidden = copy(bytes("0003 c0010c 0002 4001"), "length16", "length8");
    EXPECT_EQ(forbidden.status, 1);
    EXPECT_EQ(forbidden.err,
              "kovran: standard input: at 0: "
              "skipped a NAL unit whose forbidden_zero_bit is 1; not copied\n");
    EXPECT_EQ(forbidden.out, bytes("02 4001"));

    const outcome one = copy(bytes("01 40 02 4001"), "length8", "length8");
    EXPECT_EQ(one.status, 1);
    EXPECT_EQ(one.err,
              "kovran: standard input: at 0: "
              "a length of 1 leaves no room for a NAL unit header; not copied\n");
    EXPECT_EQ(one.out, bytes("02 4001"));

    const outcome leading = copy(bytes("aabb 000001 4001"), "annexb", "annexb");
    EXPECT_EQ(leading.status, 1);
    EXPECT_EQ(leading.err,
              "kovran: standard input: at 0: "
              "skipped 2 bytes before the first start code; not copied\n");
    EXPECT_EQ(leading.out, bytes("000001 4001"));

    const outcome none = copy("no video", "annexb", "annexb");
    EXPECT_EQ(none.status, 1);
    EXPECT_EQ(none.err, "kovran: standard input: at 0: no NAL unit found\n");
}

TEST(InspectCopy, KeepsWhatIsThereOfAUnitCutShort) {
    const outcome result = copy(bytes("0002 4001 0010 42010102"), "length16", "length8");
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err,
              "kovran: standard input: unit 1 at 6: truncated: 4 of 16 bytes are present\n");
    EXPECT_EQ(result.out, bytes("02 4001 04 42010102"));
}

TEST(InspectCopy, FailsAtAUnitThatIsTooLong) {
    const temporary_folder folder;
    const std::string longest = bytes("0201") + std::string(253, 'x');
    EXPECT_EQ(faultless_copy(length_prefixed({longest}, 2), "length16", "length8"),
              length_prefixed({longest}, 1));

    const std::string too_long = bytes("0201") + std::string(298, 'x');
    const std::string in =
        folder.write("in", length_prefixed({bytes("4001"), too_long, bytes("4201")}, 2));
    const std::string out = folder.file("out");
    const outcome result = run({"copy", in, out, "--from", "length16", "--to", "length8"});
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.err, "kovran: " + in +
                              ": unit 1 at 6: 300 bytes do not fit a length8 prefix; " + out +
                              " was not written\n");
    EXPECT_FALSE(std::filesystem::exists(out));

    const std::string kept = folder.write("kept", "contents");
    const outcome again = run({"copy", in, kept, "--from", "length16", "--to", "length8"});
    EXPECT_EQ(again.status, 2);
    EXPECT_NE(again.err.find("; " + kept + " is unchanged\n"), std::string::npos);
    EXPECT_EQ(read_file(kept), "contents");
    EXPECT_EQ(files_in(folder), (std::vector<std::string>{"in", "kept"}));
}

TEST(InspectCopy, CountsTheBytesThatWouldBeWritten) {
    // 255 bytes, one more with the emulation prevention byte that is missing.
    const std::string unit = bytes("0201 000002") + std::string(250, 'x');
    const outcome result = copy(length_prefixed({unit}, 1), "length8", "length8");
    EXPECT_EQ(result.status, 2);
    EXPECT_NE(result.err.find("unit 0 at 1: 256 bytes do not fit a length8 prefix"),
              std::string::npos);
}

TEST(InspectCopy, ReplacesAnExistingFile) {
    const temporary_folder folder;
    const std::string out = folder.write("out", std::string(10000, 'x'));
    EXPECT_EQ(run({"copy", stream_path("mainstill"), out}).status, 0);
    EXPECT_EQ(read_file(out), read_file(stream_path("mainstill")));
}

TEST(InspectCopy, LeavesNothingButTheCopy) {
    const temporary_folder folder;
    EXPECT_EQ(run({"copy", stream_path("mainstill"), folder.file("out")}).status, 0);
    EXPECT_EQ(files_in(folder), std::vector<std::string>{"out"});
}

TEST(InspectCopy, KeepsTheModeOfAnExistingFile) {
    const temporary_folder folder;
    const std::string out = folder.write("out", "");
    ASSERT_EQ(::chmod(out.c_str(), 0640), 0);
    EXPECT_EQ(run({"copy", stream_path("mainstill"), out}).status, 0);
    struct stat status {};
    ASSERT_EQ(::stat(out.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0640U);
}

TEST(InspectCopy, WritesTheFileBehindALink) {
    const temporary_folder folder;
    const std::string out = folder.write("out", "old");
    std::filesystem::create_symlink(out, folder.file("link"));
    EXPECT_EQ(run({"copy", stream_path("mainstill"), folder.file("link")}).status, 0);
    EXPECT_TRUE(std::filesystem::is_symlink(folder.file("link")));
    EXPECT_EQ(read_file(out), read_file(stream_path("mainstill")));
}

TEST(InspectCopy, TakesTheLongestNameOfAFile) {
    const temporary_folder folder;
    const std::string out = folder.file(std::string(255, 'n'));
    EXPECT_EQ(run({"copy", stream_path("mainstill"), out}).status, 0);
    EXPECT_EQ(read_file(out), read_file(stream_path("mainstill")));
}

TEST(InspectCopy, AFileThatMayNotBeWrittenIsNotReplaced) {
    const temporary_folder folder;
    const std::string out = folder.write("out", "kept");
    ASSERT_EQ(::chmod(out.c_str(), 0444), 0);
    const outcome result =
        program({"copy", stream_path("mainstill"), out}).without_file_privileges().run();
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.err, "kovran: " + out + ": Permission denied\n");
    EXPECT_EQ(read_file(out), "kept");
}

TEST(InspectCopy, AFileAboveTheSizeLimitIsAFailure) {
    const temporary_folder folder;
    const std::string out = folder.write("out", "kept");
    const outcome result = program({"copy", stream_path("hm_ra16"), out}).file_size(1000).run();
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.err, "kovran: " + out + ": File too large; " + out + " is unchanged\n");
    EXPECT_EQ(read_file(out), "kept");
    EXPECT_EQ(files_in(folder), std::vector<std::string>{"out"});
}

TEST(InspectCopy, RefusesToOverwriteItsInput) {
    const temporary_folder folder;
    const std::string contents = read_file(stream_path("mainstill"));
    const std::string in = folder.write("in", contents);
    std::filesystem::create_hard_link(in, folder.file("hard"));
    std::filesystem::create_symlink(in, folder.file("soft"));
    for (const std::string& out : {in, folder.file("hard"), folder.file("soft")}) {
        const outcome result = run({"copy", in, out});
        EXPECT_EQ(result.status, 2);
        EXPECT_EQ(result.err, "kovran: " + out + ": is also the input file\n");
    }
    const outcome redirected = program({"copy", "-", "-"}).input_from(in).output_to(in).run();
    EXPECT_EQ(redirected.status, 2);
    EXPECT_EQ(read_file(in), contents);
}

TEST(InspectCopy, MayReadAndWriteTheSameDevice) {
    const outcome result = run({"copy", "/dev/null", "/dev/null", "--from", "length32"});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, "kovran: /dev/null: at 0: no NAL unit found\n");
}

}  // namespace
}  // namespace kovran::test
