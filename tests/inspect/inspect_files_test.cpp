#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstddef>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>

#include "byte_string.h"
#include "full_pipe.h"
#include "input/input.h"
#include "process/bus_error.h"
#include "process/failure.h"
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

// A message of 4 KiB, in many parts, while somebody else fills the pipe.
TEST(InspectFiles, MessagesReachANonBlockingStandardError) {
    full_pipe errors(full_pipe::writing::fails);
    const std::string verb(4096, 'x');
    program inspector({verb});
    inspector.errors_into(errors.writing_end());
    std::thread reader([&errors] {
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
        errors.make_room();
    });
    const outcome result = inspector.run();
    reader.join();
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(errors.text(), "kovran: The following argument was not expected: " + verb +
                                 "\nRun kovran --help for more information.\n");
}

TEST(InspectFiles, OutputAboveTheSizeLimitIsAFailureOfEveryVerb) {
    const temporary_folder folder;
    const std::string in = stream_path("hm_ra16");
    const std::string too_large = "standard output: File too large";
    int number = 0;
    for (const std::vector<std::string>& arguments : {std::vector<std::string>{"--help"},
                                                      {"info", in},
                                                      {"nals", in},
                                                      {"nals", "--json", in},
                                                      {"dump", in},
                                                      {"dump", "--json", in},
                                                      {"trace", in}}) {
        program inspector(arguments);
        // The message must be no larger, as it is caught in a file.
        const std::string out = folder.file("out" + std::to_string(number++));
        expect_failure(inspector.output_to(out).file_size(100).run(), too_large);
        EXPECT_EQ(read_file(out).size(), 100U);
    }
    expect_failure(program({"copy", in, "-"}).output_to(folder.file("copy")).file_size(100).run(),
                   too_large + "; standard output is incomplete");
    expect_failure(program({"differences", stream_path("x265_42_alpha")})
                       .output_to(folder.file("differences"))
                       .file_size(100)
                       .run(),
                   too_large);
}

const char became_shorter[] =
    "the input file became shorter, or its disk failed, while it was being read";

// 1000 bytes.
std::string unit_of_large_file() {
    return bytes("00000001 0201") + std::string(994, '\x55');
}

std::string write_units(const temporary_folder& folder, std::size_t count) {
    std::string stream;
    for (std::size_t i = 0; i < count; ++i) {
        stream += unit_of_large_file();
    }
    return folder.write("shrinking", stream);
}

// The program is held up by a pipe that takes no more of its output, and then finds that the bytes
// from 2 MiB on are gone. A unit is known once the start code of the next one is there.
TEST(InspectFiles, WhatWasReadOfAFileThatShrinksIsShown) {
    const temporary_folder folder;
    const std::string path = write_units(folder, 8000);
    const std::string fifo = folder.file("fifo");
    ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
    std::string shown;
    std::thread reader([&] {
        std::ifstream out(fifo, std::ios::binary);
        shown += static_cast<char>(out.get());
        std::filesystem::resize_file(path, std::size_t{2} << 20);
        std::ostringstream rest;
        rest << out.rdbuf();
        shown += rest.str();
    });
    const outcome result = program({"nals", "--json", path}).output_to(fifo).run();
    reader.join();
    expect_failure(result, became_shorter);
    EXPECT_EQ(std::count(shown.begin(), shown.end(), '\n'), 2097);
    const std::string last = "{\"index\":2096,\"offset\":2096004,\"prefix\":4,\"size\":996,";
    EXPECT_EQ(shown.rfind(last), shown.rfind("{\"index\""));
}

// The copy is held up by the message of the first unit's fault.
TEST(InspectFiles, ACopyOfAFileThatShrinksSaysWhatBecameOfIt) {
    for (const bool exists : {false, true}) {
        const temporary_folder folder;
        const std::string path = folder.write(
            "in", bytes("000001 4000") + std::string(100000, 'x') + bytes("000001 4201"));
        const std::string out = exists ? folder.write("out", "kept") : folder.file("out");
        full_pipe errors(full_pipe::writing::waits);
        std::thread truncater([&] {
            const auto files = [&folder] {
                return std::distance(std::filesystem::directory_iterator(folder.path()), {});
            };
            while (files() != (exists ? 3 : 2)) {  // until there is the file beside
                std::this_thread::sleep_for(std::chrono::milliseconds(1));
            }
            std::filesystem::resize_file(path, 0);
            errors.make_room();
        });
        const outcome result = program({"copy", path, out}).errors_into(errors.writing_end()).run();
        truncater.join();
        EXPECT_EQ(result.status, 2);
        const std::string text = errors.text();
        const std::string message = std::string("kovran: ") + became_shorter + "; " + out +
                                    (exists ? " is unchanged\n" : " was not written\n");
        EXPECT_EQ(text.substr(text.rfind("kovran: the input")), message);
        std::filesystem::remove(path);
        EXPECT_EQ(std::filesystem::is_empty(folder.path()), !exists);
        if (exists) {
            EXPECT_EQ(read_file(out), "kept");
        }
    }
}

TEST(InspectFiles, AFileThatShrinksWithinAPageIsAFailure) {
    const temporary_folder folder;
    const std::string path = folder.write("shrinking", std::string(100, 'x'));
    const auto stream = inspect::open_input(path);
    ASSERT_TRUE(stream->read_more());
    std::filesystem::resize_file(path, 50);
    EXPECT_THROW(static_cast<void>(stream->read_more()), inspect::failure);
}

TEST(InspectFiles, WhatIsLostOfAFileReadsAsZerosUntilTheNextUse) {
    inspect::survive_bus_errors();
    const temporary_folder folder;
    const std::string path = folder.write("shrinking", std::string(100000, 'x'));
    const auto stream = inspect::open_input(path);
    ASSERT_TRUE(stream->read_more());
    std::filesystem::resize_file(path, 65536);
    EXPECT_EQ(stream->begin()[65535], 'x');
    EXPECT_NO_THROW(inspect::require_mapped_bytes());
    EXPECT_EQ(stream->begin()[65536], 0);
    EXPECT_EQ(stream->begin()[99999], 0);
    EXPECT_EQ(stream->begin()[65535], 'x');
    EXPECT_THROW(inspect::require_mapped_bytes(), inspect::failure);
    EXPECT_THROW(stream->drop(1), inspect::failure);
    EXPECT_THROW(static_cast<void>(stream->read_more()), inspect::failure);
    EXPECT_THROW(static_cast<void>(stream->skip_hole()), inspect::failure);
}

TEST(InspectFilesDeathTest, OtherBusErrorsEndTheProgram) {
    const temporary_folder folder;
    const std::string path = folder.write("other", std::string(100, 'x'));
    const std::string read = folder.write("read", std::string(100, 'x'));
    const auto read_what_is_not_watched = [&] {
        inspect::survive_bus_errors();
        const auto stream = inspect::open_input(read);
        static_cast<void>(stream->read_more());
        const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
        const auto* const other = static_cast<const unsigned char*>(
            ::mmap(nullptr, 100, PROT_READ, MAP_PRIVATE, file, 0));
        std::filesystem::resize_file(path, 0);
        std::exit(*other);
    };
    const auto send_one = [] {
        inspect::survive_bus_errors();
        std::raise(SIGBUS);
    };
    EXPECT_EXIT(read_what_is_not_watched(), testing::KilledBySignal(SIGBUS), "");
    EXPECT_EXIT(send_one(), testing::KilledBySignal(SIGBUS), "");
}

// The files of this file system have a size, and cannot be mapped.
TEST(InspectFiles, AFileThatCannotBeMappedIsRead) {
    const std::string path = "/sys/devices/system/cpu/online";
    if (!std::filesystem::exists(path)) {
        GTEST_SKIP() << "there is no " << path;
    }
    EXPECT_EQ(run({"nals", path}).err, "kovran: " + path + ": at 0: no NAL unit found\n");
}

}  // namespace
}  // namespace kovran::test
