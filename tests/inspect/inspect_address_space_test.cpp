#include <gtest/gtest.h>

#include <cstddef>
#include <string>

#include "byte_string.h"
#include "large_stream.h"
#include "program.h"
#include "temporary_folder.h"

// The program with little room. The address sanitizer reserves terabytes, so these tests are not
// built with it.
namespace kovran::test {
namespace {

TEST(InspectAddressSpace, NeedsNoRoomForAWholeFile) {
    const temporary_folder folder;
    const std::string path = write_large_stream(folder);
    expect_last_unit(program({"nals", "--json", path}).address_space(60 * mebibyte).run());
}

TEST(InspectAddressSpace, EndsTheProgramWithAMessageWhenThereIsNoMore) {
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

// sei_prefix_indication() with 256 prefixes of 65,536 bits, each bit an element.
TEST(InspectAddressSpace, ShowsWhatItHadMemoryForOfAMessage) {
    const std::size_t size = 3 * mebibyte;
    const std::string message = bytes("c9") + std::string(size / 255, '\xff') +
                                static_cast<char>(size % 255) + std::string(size, '\xff');
    const outcome result = program({"trace", "-"})
                               .input(bytes("000001 4e01") + message + bytes("80"))
                               .address_space(100 * mebibyte)
                               .run();
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.err, "kovran: not enough memory\n");
    EXPECT_NE(result.out.find("sei_prefix_data_bit[0][65535]"), std::string::npos);
}

}  // namespace
}  // namespace kovran::test
