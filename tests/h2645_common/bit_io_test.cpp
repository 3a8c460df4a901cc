#include <kovran/h2645_common/bit_io.h>
#include <kovran/h2645_common/h2645_common_bitreader.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <type_traits>

namespace kovran {
namespace {

using rbsp_reservoir = bit_io::reservoir<unsigned int, 0>;
using rbsp_source = bit_io::data_source_memory_alt1<unsigned char, const unsigned char*>;
using rbsp_reader = bit_io::reader<rbsp_reservoir, rbsp_source>;

const std::byte* address(const void* object) {
    return static_cast<const std::byte*>(object);
}

TEST(BitIo, ReaderHasItsFieldsInTheirTypes) {
    static_assert(sizeof(unsigned int) == 4);
    static_assert(std::is_same_v<decltype(rbsp_reader::reservoir), unsigned int>);
    static_assert(std::is_same_v<decltype(rbsp_reader::vacant), unsigned char>);
    static_assert(std::is_same_v<decltype(rbsp_reader::start), const unsigned char*>);
    static_assert(std::is_same_v<decltype(rbsp_reader::current), const unsigned char*>);
    static_assert(std::is_same_v<decltype(rbsp_reader::end), const unsigned char*>);
}

TEST(BitIo, ReaderHasItsFieldsInTheirOrder) {
    const rbsp_reader reader;
    EXPECT_EQ(address(&reader.reservoir), address(&reader));
    EXPECT_LT(address(&reader.reservoir), address(&reader.vacant));
    EXPECT_LT(address(&reader.vacant), address(&reader.start));
    EXPECT_LT(address(&reader.start), address(&reader.current));
    EXPECT_LT(address(&reader.current), address(&reader.end));
}

TEST(BitIo, ReaderHoldsNothingElse) {
    struct fields {
        unsigned int reservoir;
        unsigned char vacant;
        const unsigned char* start;
        const unsigned char* current;
        const unsigned char* end;
    };
    static_assert(sizeof(rbsp_reader) == sizeof(fields));
}

TEST(BitIo, BitreaderIsThatReader) {
    static_assert(std::is_base_of_v<rbsp_reader, h2645_common_bitreader>);
    static_assert(std::is_convertible_v<h2645_common_bitreader*, rbsp_reader*>);
    static_assert(sizeof(h2645_common_bitreader) == sizeof(rbsp_reader));
    static_assert(std::is_trivially_copyable_v<h2645_common_bitreader>);
}

TEST(BitIo, FreshReaderHoldsNoBits) {
    const rbsp_reader reader;
    EXPECT_EQ(reader.reservoir, 0U);
    EXPECT_EQ(reader.vacant, 32);
    EXPECT_EQ(reader.start, nullptr);
    EXPECT_EQ(reader.current, nullptr);
    EXPECT_EQ(reader.end, nullptr);
    EXPECT_EQ(reader.bit_position(), 0U);
}

TEST(BitIo, ReadsWithoutTheExpGolombLayer) {
    const unsigned char bytes[] = {0b101'00101, 0xFF};
    rbsp_reader reader;
    reader.start = bytes;
    reader.current = bytes;
    reader.end = bytes + 2;
    EXPECT_EQ(reader.get<unsigned int>(3), 0b101U);
    EXPECT_EQ(reader.get<unsigned int>(13), 0b00101'11111111U);
    EXPECT_EQ(reader.bit_position(), 16U);
}

}  // namespace
}  // namespace kovran
