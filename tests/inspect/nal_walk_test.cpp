#include "units/nal_walk.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "byte_string.h"
#include "input/input.h"
#include "input/mapped_input.h"
#include "input/piped_input.h"
#include "process/failure.h"
#include "readings.h"
#include "temporary_folder.h"
#include "units/annex_b_walk.h"

namespace kovran::inspect {
namespace {

using test::bytes;
using test::temporary_folder;

const std::size_t piece_sizes[] = {1, 2, 3, 4, 5, 7, 16, 61, 4096};

// What a walk tells, in words that can be compared.
std::vector<std::string> told_by(nal_walk& walk) {
    std::vector<std::string> told;
    nal_unit unit;
    while (walk.next(unit)) {
        std::string line = std::to_string(unit.offset) + '+' + std::to_string(unit.size);
        if (unit.readable) {
            line += " unit " + std::to_string(unit.index) + " prefix " +
                    std::to_string(unit.prefix) + " header " +
                    std::to_string(unit.header.encode_header()) + ' ';
            line.append(reinterpret_cast<const char*>(unit.bytes), unit.size);
        }
        for (const std::string& fault : unit.faults) {
            line += "; " + fault;
        }
        told.push_back(line);
    }
    return told;
}

std::vector<std::string> walked(input& stream, h2645_common_nalfmt format) {
    return told_by(*walk_nal_units(stream, format));
}

std::unique_ptr<input> piped(const std::string& path, std::size_t piece) {
    piped_input::sizes sizes;
    sizes.piece = piece;
    return std::make_unique<piped_input>(file_descriptor::open_to_read(path), std::nullopt, sizes);
}

std::unique_ptr<input> mapped(const std::string& path, std::size_t piece) {
    mapped_input::sizes sizes;
    sizes.piece = piece;
    return std::make_unique<mapped_input>(file_descriptor::open_to_read(path),
                                          std::filesystem::file_size(path), sizes);
}

void expect_same_in_pieces(const std::string& path, h2645_common_nalfmt format) {
    const std::vector<std::string> whole = walked(*open_input(path), format);
    for (const std::size_t piece : piece_sizes) {
        EXPECT_EQ(walked(*piped(path, piece), format), whole) << "read in pieces of " << piece;
        if (std::filesystem::file_size(path) / piece < 1000) {  // each takes system calls
            EXPECT_EQ(walked(*mapped(path, piece), format), whole)
                << "mapped in pieces of " << piece;
        }
    }
}

// Thick with what the framing is made of.
std::string random_bytes(std::mt19937& random, std::size_t size) {
    const std::string alphabet = bytes("000000000001 02 03 40 80 c1");
    std::string result;
    for (std::size_t i = 0; i < size; ++i) {
        result += alphabet[random() % alphabet.size()];
    }
    return result;
}

struct extent {
    std::uint64_t offset;
    std::uint64_t prefix;
    std::size_t size;

    bool operator==(const extent& other) const {
        return offset == other.offset && prefix == other.prefix && size == other.size;
    }
};

bool is_start_code(const std::string& stream, std::size_t place) {
    return place + 3 <= stream.size() && stream.compare(place, 3, bytes("000001")) == 0;
}

bool is_start_code_of_unit(const std::string& stream, std::size_t place) {
    return place + 5 <= stream.size() && is_start_code(stream, place) &&
           (static_cast<unsigned char>(stream[place + 3]) & 0x80U) == 0;
}

// The units of an Annex B stream, found at every byte anew.
std::vector<extent> extents(const std::string& stream) {
    std::vector<extent> units;
    std::size_t search_from = 0;
    std::size_t end_before = 0;
    for (;;) {
        std::size_t code = search_from;
        while (code < stream.size() && !is_start_code_of_unit(stream, code)) {
            ++code;
        }
        const bool at_end = code == stream.size();
        if (at_end && !units.empty()) {
            const std::size_t rest =
                stream.size() < search_from + 4 ? search_from : stream.size() - 4;
            for (code = rest; code < stream.size() && !is_start_code(stream, code);) {
                ++code;
            }
        }
        std::size_t zeros = code;
        while (zeros > search_from && stream[zeros - 1] == 0) {
            --zeros;
        }
        if (!units.empty()) {
            units.back().size = zeros - end_before;
        }
        if (at_end) {
            return units;
        }
        units.push_back({code + 3, code + 3 - zeros, 0});
        end_before = code + 3;
        search_from = code + 5;
    }
}

TEST(NalWalk, FindsTheSameInPiecesOfEveryStream) {
    for (const std::string& name : test::stream_names()) {
        SCOPED_TRACE(name);
        expect_same_in_pieces(test::stream_path(name), nalfmt_annex_b);
    }
}

TEST(NalWalk, FindsTheSameInPiecesOfRandomBytes) {
    const temporary_folder folder;
    std::mt19937 random(20240501);
    for (int i = 0; i < 200; ++i) {
        const std::string path = folder.write("random", random_bytes(random, random() % 120));
        for (const h2645_common_nalfmt format :
             {nalfmt_length8, nalfmt_length16, nalfmt_length24, nalfmt_length32, nalfmt_annex_b}) {
            SCOPED_TRACE(testing::Message() << "round " << i << ", format " << format);
            expect_same_in_pieces(path, format);
        }
    }
}

TEST(NalWalk, FindsWhatASearchAtEveryByteFinds) {
    const temporary_folder folder;
    std::mt19937 random(4);
    std::size_t count = 0;
    for (int i = 0; i < 3000; ++i) {
        const std::string stream = random_bytes(random, 1 + random() % 60);
        const auto opened = open_input(folder.write("random", stream));
        const auto walk = walk_nal_units(*opened, nalfmt_annex_b);
        std::vector<extent> found;
        nal_unit unit;
        while (walk->next(unit)) {
            if (unit.readable) {
                found.push_back({unit.offset, unit.prefix, unit.size});
            }
        }
        EXPECT_TRUE(found == extents(stream)) << "round " << i;
        count += found.size();
    }
    EXPECT_GT(count, 1000U);
}

TEST(NalWalk, FindsTheSameInPiecesOfLengthPrefixedUnits) {
    const temporary_folder folder;
    for (const std::size_t prefix_size : {2U, 4U}) {
        const std::vector<std::string> units = {
            bytes("40010c"), bytes("0201") + std::string(300, 'x'), bytes("4401")};
        const std::string path = folder.write("units", test::length_prefixed(units, prefix_size));
        expect_same_in_pieces(path, static_cast<h2645_common_nalfmt>(prefix_size));
    }
}

std::string random_zeros_and_units(std::mt19937& random) {
    const std::vector<std::string> parts = {
        bytes("000001"),     bytes("4001"),       bytes("0000"),        bytes("07"),
        bytes("000003"),     std::string(9, 'x'), std::string(5, '\0'), std::string(40, '\0'),
        bytes("0000014201"), bytes("000001c001")};
    std::string stream;
    for (std::size_t count = random() % 12; count != 0; --count) {
        stream += parts[random() % parts.size()];
    }
    return stream;
}

// Whether zero bytes are held or only counted, they go to the same unit or to none.
TEST(NalWalk, FindsTheSameWhateverItTakesForPadding) {
    const temporary_folder folder;
    std::mt19937 random(77);
    for (int i = 0; i < 500; ++i) {
        SCOPED_TRACE(i);
        const std::string path = folder.write("random", random_zeros_and_units(random));
        if (std::filesystem::file_size(path) == 0) {
            continue;
        }
        const std::vector<std::string> expected = walked(*open_input(path), nalfmt_annex_b);
        for (const std::size_t padding : {1U, 2U, 5U, 30U}) {
            for (const std::size_t piece : {1U, 7U, 64U}) {
                for (const auto& stream : {piped(path, piece), mapped(path, piece)}) {
                    annex_b_walk walk(*stream, padding);
                    EXPECT_EQ(told_by(walk), expected);
                }
            }
        }
    }
}

TEST(NalWalk, FindsTheSameInHolesOfAFileAsInZerosOfAPipe) {
    const temporary_folder folder;
    const std::string path = folder.file("holes");
    std::mt19937 random(5);
    for (int i = 0; i < 200; ++i) {
        SCOPED_TRACE(i);
        std::ofstream file(path, std::ios::binary);
        std::size_t size = 0;
        for (std::size_t parts = 1 + random() % 6; parts != 0; --parts) {
            const std::string part = random_zeros_and_units(random);
            file.seekp(static_cast<std::streamoff>(size));
            file << part;
            size += part.size() + random() % 3 * (random() % 50000);
        }
        file.close();
        std::filesystem::resize_file(path, size);
        if (size == 0) {
            continue;
        }
        const std::vector<std::string> expected = walked(*piped(path, 4096), nalfmt_annex_b);
        for (const std::size_t padding : {5U, 1000U}) {
            for (const std::size_t piece : {1000U, 4096U, 100000U}) {
                const auto stream = mapped(path, piece);
                annex_b_walk walk(*stream, padding);
                EXPECT_EQ(told_by(walk), expected);
            }
        }
    }
}

TEST(NalWalk, RefusesToHoldTooLongAUnitOfAFile) {
    const temporary_folder folder;
    const std::string path = folder.write(
        "long", bytes("000001 4001 000001 0201") + std::string(200, 'x') + bytes("000001 4401"));
    mapped_input::sizes sizes;
    sizes.piece = 16;
    sizes.largest_window = 100;
    mapped_input stream(file_descriptor::open_to_read(path), 215, sizes);
    const auto walk = walk_nal_units(stream, nalfmt_annex_b);
    nal_unit unit;
    ASSERT_TRUE(walk->next(unit));
    try {
        static_cast<void>(walk->next(unit));
        FAIL();
    } catch (const failure& reason) {
        EXPECT_EQ(reason.what(),
                  path + ": at 8: more than 100 bytes without the end of a NAL unit");
    }
}

TEST(NalWalk, RefusesToKeepTooLongAUnitOfAPipe) {
    const temporary_folder folder;
    const std::string path = folder.write(
        "long", bytes("000001 4001 000001 0201") + std::string(200, 'x') + bytes("000001 4401"));
    piped_input::sizes sizes;
    sizes.piece = 16;
    sizes.largest_window = 100;
    piped_input stream(file_descriptor::open_to_read(path), std::nullopt, sizes);
    const auto walk = walk_nal_units(stream, nalfmt_annex_b);
    nal_unit unit;
    ASSERT_TRUE(walk->next(unit));
    EXPECT_THROW(static_cast<void>(walk->next(unit)), failure);
    EXPECT_EQ(walked(*open_input(path), nalfmt_annex_b).size(), 3U);
}

}  // namespace
}  // namespace kovran::inspect
