#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <thread>

#include <sys/stat.h>

#include "byte_string.h"
#include "input/input.h"
#include "process/bus_error.h"
#include "program.h"
#include "readings.h"
#include "temporary_folder.h"

namespace kovran::test {
namespace {

void expect_failure(const outcome& result, const std::string& message) {
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.err, "kovran: " + message + '\n');
}

TEST(InspectFiles, MissingFileIsAFailure) {
    const temporary_folder folder;
    const std::string path = folder.file("missing");
    expect_failure(run({"nals", path}), path + ": No such file or directory");
    expect_failure(run({"copy", path, folder.file("out")}), path + ": No such file or directory");
    EXPECT_FALSE(std::filesystem::exists(folder.file("out")));
}

TEST(InspectFiles, FolderIsAFailure) {
    const temporary_folder folder;
    expect_failure(run({"nals", folder.path()}), folder.path() + ": Is a directory");
    expect_failure(program({"nals", "-", "--json"}).input_from(folder.path()).run(),
                   "standard input: Is a directory");
    expect_failure(run({"copy", stream_path("mainstill"), folder.path()}),
                   folder.path() + ": Is a directory");
}

TEST(InspectFiles, UnreadableFileIsAFailure) {
    const temporary_folder folder;
    const std::string path = folder.write("locked", "contents");
    ::chmod(path.c_str(), 0);
    expect_failure(program({"nals", path}).without_file_privileges().run(),
                   path + ": Permission denied");
}

TEST(InspectFiles, ReadErrorIsAFailure) {
    // Nothing is mapped at address 0 of the program's own memory.
    expect_failure(run({"nals", "--json", "/proc/self/mem"}), "/proc/self/mem: Input/output error");
}

TEST(InspectFiles, FullDiskIsAFailure) {
    expect_failure(program({"nals", stream_path("mainstill")}).output_to("/dev/full").run(),
                   "standard output: No space left on device");
    expect_failure(program({"--help"}).output_to("/dev/full").run(),
                   "standard output: No space left on device");
    expect_failure(run({"copy", stream_path("mainstill"), "/dev/full"}),
                   "/dev/full: No space left on device; /dev/full is incomplete");
    expect_failure(program({"copy", stream_path("mainstill"), "-"}).output_to("/dev/full").run(),
                   "standard output: No space left on device; standard output is incomplete");
}

TEST(InspectFiles, ClosedOutputIsAFailure) {
    expect_failure(
        program({"nals", stream_path("mainstill")}).without_descriptor(STDOUT_FILENO).run(),
        "standard output: Bad file descriptor");
}

TEST(InspectFiles, ClosedInputIsAFailure) {
    expect_failure(program({"nals", "-", "--json"}).without_descriptor(STDIN_FILENO).run(),
                   "standard input: Bad file descriptor");
}

TEST(InspectFiles, MessagesNeverEndUpInTheCopy) {
    const temporary_folder folder;
    const std::string in = folder.write("in", bytes("aa 000001 40010c"));
    const std::string out = folder.file("out");
    const outcome result = program({"copy", in, out}).without_descriptor(STDERR_FILENO).run();
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(read_file(out), bytes("000001 40010c"));
}

// Escape sequences would command the terminal, a new line would look like another message.
TEST(InspectFiles, ControlCharactersInNamesAreEscaped) {
    const temporary_folder folder;
    const std::string missing = folder.file("a\x1b[2J\n\x7f\xc2\x9b\x9b");
    expect_failure(run({"nals", missing}), folder.file("a\\x1b[2J\\x0a\\x7f\xc2\\x9b\\x9b") +
                                               ": No such file or directory");
    const std::string utf8 = folder.file("\xc3\x9b\xe2\x80\x9b\xf0\x9f\x98\x80");
    expect_failure(run({"nals", utf8}), utf8 + ": No such file or directory");
    EXPECT_EQ(run({"nals", "a", "--\x1b[2J"}).err,
              "kovran: The following argument was not expected: --\\x1b[2J\n"
              "Run kovran --help for more information.\n");
    const std::string faulty = folder.write("\x1b[2J", bytes("000001 4000"));
    EXPECT_EQ(run({"nals", faulty}).err,
              "kovran: " + folder.file("\\x1b[2J") + ": unit 0 at 3: nuh_temporal_id_plus1 is 0\n");
}

TEST(InspectFiles, FifoIsRead) {
    const temporary_folder folder;
    const std::string path = folder.file("fifo");
    ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
    std::thread writer(
        [&] { static_cast<void>(folder.write("fifo", read_file(stream_path("mainstill")))); });
    const outcome result = run({"nals", "--json", path});
    writer.join();
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out, run({"nals", "--json", stream_path("mainstill")}).out);
}

TEST(InspectFilesDeathTest, FileThatShrinksWhileItIsReadIsAFailure) {
    const temporary_folder folder;
    const std::string path = folder.write("shrinking", std::string(100000, 'x'));
    const auto read_what_is_gone = [&path] {
        inspect::report_bus_errors();
        const auto stream = inspect::open_input(path);
        static_cast<void>(stream->read_more());
        std::filesystem::resize_file(path, 0);
        std::exit(*stream->begin());
    };
    EXPECT_EXIT(read_what_is_gone(), testing::ExitedWithCode(2), "became shorter");
}

}  // namespace
}  // namespace kovran::test
