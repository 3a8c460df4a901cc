#include <gtest/gtest.h>

#include <cstddef>
#include <fstream>
#include <string>
#include <utility>
#include <vector>

#include "byte_string.h"
#include "program.h"
#include "temporary_folder.h"

namespace kovran::test {
namespace {

constexpr std::size_t mebibyte = std::size_t{1} << 20;
constexpr std::size_t units_of_stream = 70000;

#if defined(__SANITIZE_ADDRESS__)
constexpr bool sanitized = true;
#elif defined(__has_feature)
constexpr bool sanitized = __has_feature(address_sanitizer);
#else
constexpr bool sanitized = false;
#endif
// A sanitized program occupies some memory of its own. The peak of a program counts that of the
// process that started it, so that each test is to run in a process of its own, as CTest runs them.
constexpr std::size_t bound = (sanitized ? 96 : 40) * mebibyte;

program measured(std::vector<std::string> arguments) {
    program inspector(std::move(arguments));
    // What was freed would otherwise be kept, to find uses of it.
    inspector.environment("ASAN_OPTIONS=quarantine_size_mb=4");
    return inspector;
}

// 1000 bytes.
std::string unit() {
    return bytes("00000001 0201") + std::string(994, '\x55');
}

std::string write_large_stream(const temporary_folder& folder) {
    std::string path = folder.file("large");
    std::ofstream stream(path, std::ios::binary);
    const std::string repeated = unit();
    for (std::size_t i = 0; i < units_of_stream; ++i) {
        stream << repeated;
    }
    return path;
}

void expect_last_unit(const outcome& result) {
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "");
    const std::string start_of_last =
        "{\"index\":69999,\"offset\":69999004,\"prefix\":4,\"size\":996";
    const std::size_t last = result.out.rfind("{\"index\"");
    ASSERT_NE(last, std::string::npos);
    EXPECT_EQ(result.out.substr(last, start_of_last.size()), start_of_last);
}

TEST(InspectMemory, IsBoundedForALargeFile) {
    const temporary_folder folder;
    const std::string path = write_large_stream(folder);
    const outcome result = measured({"nals", "--json", path}).run();
    expect_last_unit(result);
    EXPECT_LT(result.peak_memory, bound);
}

TEST(InspectMemory, IsBoundedForAFileThatCannotBeMapped) {
    if (sanitized) {
        GTEST_SKIP() << "the address sanitizer reserves more than is allowed here";
    }
    const temporary_folder folder;
    const std::string path = write_large_stream(folder);
    expect_last_unit(program({"nals", "--json", path}).address_space(60 * mebibyte).run());
}

TEST(InspectMemory, EndsTheProgramWithAMessageWhenThereIsNoMore) {
    if (sanitized) {
        GTEST_SKIP() << "the address sanitizer reserves more than is allowed here";
    }
    std::size_t count = 0;
    program inspector({"nals", "--json", "-"});
    const outcome result = inspector.address_space(60 * mebibyte)
                               .input([&count](std::string& piece) {
                                   piece = count == 0 ? bytes("000001 4001 000001 0201")
                                                      : std::string(mebibyte, '\x55');
                                   return count++ < 100;
                               })
                               .run();
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.err, "kovran: not enough memory\n");
    EXPECT_NE(result.out.find("VPS_NUT"), std::string::npos);
    EXPECT_EQ(result.out.find("TRAIL_R"), std::string::npos);
}

TEST(InspectMemory, IsBoundedForALargePipe) {
    std::size_t count = 0;
    program inspector = measured({"nals", "--json", "-"});
    const outcome result = inspector
                               .input([&count](std::string& piece) {
                                   piece = unit();
                                   return count++ < units_of_stream;
                               })
                               .run();
    expect_last_unit(result);
    EXPECT_LT(result.peak_memory, bound);
}

TEST(InspectMemory, IsBoundedForACopy) {
    const temporary_folder folder;
    const std::string path = write_large_stream(folder);
    const outcome result = measured({"copy", path, folder.file("copy")}).run();
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(read_file(folder.file("copy")), read_file(path));
    EXPECT_LT(result.peak_memory, bound);
}

TEST(InspectMemory, IsBoundedForEndlessBytesBeforeTheFirstUnit) {
    for (const char byte : {'\0', '\x55'}) {
        std::size_t count = 0;
        program inspector = measured({"nals", "-", "--json"});
        const outcome result = inspector
                                   .input([&count, byte](std::string& piece) {
                                       piece.assign(mebibyte, byte);
                                       return count++ < 200;
                                   })
                                   .run();
        EXPECT_EQ(result.status, 1);
        EXPECT_EQ(result.out, "{\"offset\":0,\"size\":0,\"faults\":[\"no NAL unit found\"]}\n");
        EXPECT_LT(result.peak_memory, bound);
    }
}

}  // namespace
}  // namespace kovran::test
