#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "byte_string.h"
#include "nal_splitter.h"
#include "program.h"
#include "readings.h"
#include "sanitized.h"
#include "temporary_folder.h"

namespace kovran::test {
namespace {
// Streams of more than 4 GiB: places in them need more than 32 bits, and they fit neither the
// program's address space nor its memory.

constexpr std::uint64_t mebibyte = std::uint64_t{1} << 20;
constexpr std::uint64_t gibibyte = std::uint64_t{1} << 30;

// As in inspect_memory_test.cpp.
constexpr std::size_t memory_bound = (sanitized ? 96 : 40) * mebibyte;

// Four units: VPS, SPS, PPS, IDR picture.
const char name[] = "mainstill";

std::string picture() {
    return read_file(stream_path(name));
}

// A file whose holes take no room on the disk and read as zeros.
class sparse_file {
public:
    explicit sparse_file(const std::string& path) : path_(path), file_(path, std::ios::binary) {}

    sparse_file& add(const std::string& contents) {
        file_.seekp(static_cast<std::streamoff>(size_));
        file_ << contents;
        size_ += contents.size();
        return *this;
    }
    sparse_file& add_hole(std::uint64_t size) {
        size_ += size;
        return *this;
    }
    const std::string& close() {
        file_.close();
        std::filesystem::resize_file(path_, size_);
        return path_;
    }

private:
    std::string path_;
    std::ofstream file_;
    std::uint64_t size_ = 0;
};

// Between the two pictures of each large stream. The second begins above 4 GiB.
constexpr std::uint64_t padding = 4097 * mebibyte;

std::string write_annex_b(const temporary_folder& folder) {
    sparse_file file(folder.file("annex_b"));
    return file.add(picture()).add_hole(padding).add(picture()).add_hole(gibibyte).close();
}

// Between the two pictures: units of 1 GiB that are skipped, as their forbidden_zero_bit is 1.
constexpr std::uint64_t skipped_units = 4;
constexpr std::uint64_t skipped_unit_size = 4 + gibibyte;

std::string length_prefixed_picture() {
    return length_prefixed(split_annex_b(picture()), 4);
}

std::string write_length_prefixed(const temporary_folder& folder) {
    sparse_file file(folder.file("length_prefixed"));
    file.add(length_prefixed_picture());
    for (std::uint64_t i = 0; i < skipped_units; ++i) {
        file.add(bytes("40000000 8001")).add_hole(gibibyte - 2);
    }
    return file.add(length_prefixed_picture()).close();
}

// The lines of `nals --json` for the units of both pictures, without those of what is no unit.
void expect_units(const outcome& result, std::uint64_t second_begin, bool annex_b) {
    const nlohmann::json picture_units = units_of_reading(name);
    std::vector<nlohmann::json> units;
    for (const std::string& line : lines_of_text(result.out)) {
        const nlohmann::json unit = nlohmann::json::parse(line);
        if (unit.contains("index")) {
            units.push_back(unit);
        }
    }
    ASSERT_EQ(units.size(), 2 * picture_units.size());
    std::uint64_t begin_of_length_prefixed = 0;
    for (std::size_t i = 0; i < units.size(); ++i) {
        SCOPED_TRACE(i);
        const std::size_t in_picture = i % picture_units.size();
        const nlohmann::json& expected = picture_units[in_picture];
        const bool second = i != in_picture;
        if (in_picture == 0) {
            begin_of_length_prefixed = second ? second_begin : 0;
        }
        const std::uint64_t offset =
            annex_b ? expected.at("offset").get<std::uint64_t>() + (second ? second_begin : 0)
                    : begin_of_length_prefixed + 4;
        begin_of_length_prefixed = offset + expected.at("size").get<std::uint64_t>();
        EXPECT_EQ(units[i].at("index"), i);
        EXPECT_EQ(units[i].at("offset"), offset);
        EXPECT_EQ(units[i].at("size"), expected.at("size"));
        EXPECT_EQ(units[i].at("nal_unit_type"), expected.at("nal_unit_type"));
        if (annex_b) {
            const std::uint64_t zeros =
                second && in_picture == 0 ? second_begin - picture().size() : 0;
            EXPECT_EQ(units[i].at("prefix"), expected.at("prefix").get<std::uint64_t>() + zeros);
        }
    }
}

// The trace of the first unit of the second picture. Its places are those of the first picture's,
// moved by `distance`.
void expect_trace(const outcome& of_second, const outcome& of_first, std::uint64_t distance) {
    const std::vector<std::string> lines = lines_of_text(of_second.out);
    const std::vector<std::string> expected = lines_of_text(of_first.out);
    ASSERT_EQ(lines.size(), expected.size());
    ASSERT_GT(lines.size(), 50U);
    for (std::size_t i = 2; i < lines.size(); ++i) {  // after rules and heading
        std::size_t line_dot = 0;
        std::size_t expected_dot = 0;
        const std::uint64_t place = std::stoull(lines[i], &line_dot);
        EXPECT_EQ(place, std::stoull(expected[i], &expected_dot) + distance);
        EXPECT_EQ(lines[i].substr(line_dot), expected[i].substr(expected_dot));
    }
}

void expect_iraps(const outcome& result, std::uint64_t first, std::uint64_t second) {
    const std::string line = "IRAP          2: picture 0 at " + std::to_string(first) + ", 1 at " +
                             std::to_string(second) + "; every picture\n";
    EXPECT_NE(result.out.find(line), std::string::npos) << result.out;
}

TEST(InspectLargeFiles, PlacesBehind4GiBOfAnnexBAreShownByEveryVerb) {
    const temporary_folder folder;
    const std::string path = write_annex_b(folder);
    const std::uint64_t second = picture().size() + padding;

    const outcome nals = run({"nals", "--json", path});
    EXPECT_EQ(nals.status, 0);
    EXPECT_EQ(nals.err, "");
    expect_units(nals, second, /*annex_b=*/true);
    EXPECT_LT(nals.peak_memory, memory_bound);

    const outcome trace = run({"trace", "--nal", "4", path});
    EXPECT_EQ(trace.status, 0);
    const std::string vps_payload = std::to_string(second + 4 + 2);
    EXPECT_NE(trace.out.find(vps_payload + ".0 "), std::string::npos);
    expect_trace(trace, run({"trace", "--nal", "0", path}), second);

    const outcome dump = run({"dump", "--json", "--nal", "7", path});
    EXPECT_EQ(dump.status, 0);
    EXPECT_EQ(nlohmann::json::parse(dump.out).at("offset"), second + 86);

    const outcome info = run({"info", path});
    EXPECT_EQ(info.status, 0);
    expect_iraps(info, 86, second + 86);

    const outcome copy = run({"copy", path, folder.file("copy")});
    EXPECT_EQ(copy.status, 0);
    EXPECT_EQ(read_file(folder.file("copy")), picture() + picture());
}

TEST(InspectLargeFiles, PlacesBehind4GiBOfLengthPrefixedUnitsAreShownByEveryVerb) {
    const temporary_folder folder;
    const std::string path = write_length_prefixed(folder);
    // The prefixes of the picture have 4 bytes each, as have all start codes but the last.
    const std::uint64_t second = picture().size() + 1 + skipped_units * skipped_unit_size;

    const outcome nals = run({"nals", "--json", "--format", "length32", path});
    EXPECT_EQ(nals.status, 1);
    expect_units(nals, second, /*annex_b=*/false);
    EXPECT_LT(nals.peak_memory, memory_bound);
    const std::string last_skipped = std::to_string(second - skipped_unit_size);
    EXPECT_NE(nals.err.find("at " + last_skipped + ": skipped a NAL unit"), std::string::npos);

    const outcome trace = run({"trace", "--nal", "4", "--format", "length32", path});
    expect_trace(trace, run({"trace", "--nal", "0", "--format", "length32", path}), second);

    const outcome dump = run({"dump", "--json", "--nal", "7", "--format", "length32", path});
    EXPECT_EQ(nlohmann::json::parse(dump.out).at("offset"), second + 87);

    expect_iraps(run({"info", "--format", "length32", path}), 87, second + 87);

    const outcome copy =
        run({"copy", "--from", "length32", "--to", "length32", path, folder.file("copy")});
    EXPECT_EQ(copy.status, 1);
    EXPECT_EQ(read_file(folder.file("copy")),
              length_prefixed_picture() + length_prefixed_picture());
}

// A sanitized program takes long to read 4 GiB from a pipe, and less here.
constexpr std::uint64_t piped_padding = sanitized ? 256 * mebibyte : padding;

TEST(InspectLargeFiles, AnnexBFromAPipeIsReadInLittleMemory) {
    std::uint64_t sent = 0;
    program inspector({"nals", "--json", "-"});
    const outcome result =
        inspector
            .input([&sent](std::string& piece) {
                if (sent == 0 || sent == picture().size() + piped_padding) {
                    piece = picture();
                } else {
                    piece.assign(mebibyte, '\0');
                }
                sent += piece.size();
                return sent <= 2 * picture().size() + piped_padding + 8 * mebibyte;
            })
            .run();
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "");
    expect_units(result, picture().size() + piped_padding, /*annex_b=*/true);
    EXPECT_LT(result.peak_memory, memory_bound);
}

TEST(InspectLargeFiles, LengthPrefixedUnitsAreReadFromAPipe) {
    // Of 8,000,000 bytes.
    const std::string unit = bytes("007a1200 7c01") + std::string(7999998, '\x55');
    constexpr std::uint64_t units = sanitized ? 30 : 537;
    std::uint64_t sent = 0;
    program inspector({"nals", "--json", "--format", "length32", "-"});
    const outcome result = inspector
                               .input([&](std::string& piece) {
                                   piece = sent < units ? unit : length_prefixed_picture();
                                   return sent++ <= units;
                               })
                               .run();
    EXPECT_EQ(result.status, 0);
    const std::vector<std::string> lines = lines_of_text(result.out);
    ASSERT_EQ(lines.size(), units + 4);
    EXPECT_EQ(nlohmann::json::parse(lines.back()).at("offset"), units * 8000004 + 87);
}

// Neither the size of the file nor the zero bytes at its end cost address space.
TEST(InspectLargeFiles, AUnitAndZerosAreReadFromFilesOfEverySize) {
    const temporary_folder folder;
    const std::string unit = bytes("000001 7c01") + std::string(40 * mebibyte, '\x55');
    for (const std::uint64_t size :
         {4000 * mebibyte, 4085 * mebibyte, 4089 * mebibyte + 4096, 5 * gibibyte}) {
        SCOPED_TRACE(size);
        sparse_file file(folder.file("padded"));
        const std::string path = file.add(unit).add_hole(size - unit.size()).close();
        const outcome result = run({"info", path});
        EXPECT_EQ(result.status, 0);
        EXPECT_EQ(result.err, "");
        EXPECT_NE(result.out.find("NAL units     1: UNSPEC62 1\n"), std::string::npos);
    }
}

// Inside a unit zero bytes belong to it, and this one is larger than what can be held.
TEST(InspectLargeFiles, AUnitOfMoreThan1GiBOfZerosIsAFailure) {
    const temporary_folder folder;
    sparse_file file(folder.file("zeros"));
    const std::string path =
        file.add(bytes("000001 4001")).add_hole(gibibyte).add(bytes("07 000001 4201")).close();
    const outcome result = run({"nals", "--json", path});
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err, "kovran: " + path +
                              ": at 3: more than 1073741824 bytes without the end of a NAL unit\n");
}

}  // namespace
}  // namespace kovran::test
