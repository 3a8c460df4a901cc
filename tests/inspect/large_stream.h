#ifndef KOVRAN_TESTS_INSPECT_LARGE_STREAM_H
#define KOVRAN_TESTS_INSPECT_LARGE_STREAM_H

#include <gtest/gtest.h>

#include <cstddef>
#include <fstream>
#include <string>

#include "byte_string.h"
#include "program.h"
#include "temporary_folder.h"

// A stream larger than the memory that the program is to take, of units that are all alike.
namespace kovran::test {

constexpr std::size_t mebibyte = std::size_t{1} << 20;
constexpr std::size_t units_of_stream = 70000;

// 1000 bytes.
inline std::string unit_of_large_stream() {
    return bytes("00000001 0201") + std::string(994, '\x55');
}

inline std::string write_large_stream(const temporary_folder& folder) {
    std::string path = folder.file("large");
    std::ofstream stream(path, std::ios::binary);
    const std::string repeated = unit_of_large_stream();
    for (std::size_t i = 0; i < units_of_stream; ++i) {
        stream << repeated;
    }
    return path;
}

inline void expect_last_unit(const outcome& result) {
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "");
    const std::string start_of_last =
        "{\"index\":69999,\"offset\":69999004,\"prefix\":4,\"size\":996";
    const std::size_t last = result.out.rfind("{\"index\"");
    ASSERT_NE(last, std::string::npos);
    EXPECT_EQ(result.out.substr(last, start_of_last.size()), start_of_last);
}

}  // namespace kovran::test

#endif  // KOVRAN_TESTS_INSPECT_LARGE_STREAM_H
