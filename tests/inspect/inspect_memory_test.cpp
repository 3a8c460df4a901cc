#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <cstddef>
#include <cstdint>
#include <fstream>
#include <string>
#include <utility>
#include <vector>

#include "annex_b_unit.h"
#include "byte_string.h"
#include "large_stream.h"
#include "program.h"
#include "sanitized.h"
#include "support/bit_writer.h"
#include "support/parameter_sets.h"
#include "temporary_folder.h"

namespace kovran::test {
namespace {

// A sanitized program occupies some memory of its own. The peak of a program counts that of the
// process that started it, so that each test is to run in a process of its own, as CTest runs them.
constexpr std::size_t bound = (sanitized ? 96 : 40) * mebibyte;

program measured(std::vector<std::string> arguments) {
    program inspector(std::move(arguments));
    // What was freed would otherwise be kept, to find uses of it.
    inspector.environment("ASAN_OPTIONS=quarantine_size_mb=4");
    return inspector;
}

TEST(InspectMemory, IsBoundedForALargeFile) {
    const temporary_folder folder;
    const std::string path = write_large_stream(folder);
    const outcome result = measured({"nals", "--json", path}).run();
    expect_last_unit(result);
    EXPECT_LT(result.peak_memory, bound);
}

TEST(InspectMemory, IsBoundedForALargePipe) {
    std::size_t count = 0;
    program inspector = measured({"nals", "--json", "-"});
    const outcome result = inspector
                               .input([&count](std::string& piece) {
                                   piece = unit_of_large_stream();
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

// ---- One unit of many elements

std::string repeated(const std::string& piece, std::size_t count) {
    std::string all;
    all.reserve(piece.size() * count);
    for (std::size_t i = 0; i < count; ++i) {
        all += piece;
    }
    return all;
}

// payloadType or payloadSize, clause 7.3.5.
std::string coded(std::size_t value) {
    return std::string(value / 255, '\xff') + static_cast<char>(value % 255);
}

// A prefix SEI unit of these messages, and an access unit delimiter behind it.
std::string stream_of(std::string messages) {
    messages.insert(0, bytes("000001 4e01"));
    messages += bytes("80 000001 460150");
    return messages;
}

struct way_to_show {
    std::string name;
    std::vector<std::string> arguments;
    std::string end;  // of the output, about the unit behind the messages
};

const std::string end_of_tree =
    "AUD_NUT, 3 bytes, layer 0, temporal id 0\n"
    "  pic_type                                            2  (B, P and I slices)\n\n";
const std::string end_of_trace = "rbsp_alignment_zero_bit" + std::string(37, ' ') + "f(1)    0\n";

const way_to_show ways[] = {
    {"Tree", {"dump"}, end_of_tree},
    {"TreeByOwnRules", {"dump", "--rules", "own"}, end_of_tree},
    {"Json", {"dump", "--json"}, "\"syntax\":{\"pic_type\":2}}\n"},
    {"Trace", {"trace"}, end_of_trace},
    {"TraceByOwnRules", {"trace", "--rules", "own"}, end_of_trace},
    {"Differences", {"differences"}, " of 2 NAL units are read differently\n"},
    {"Info", {"info"}, "NAL units     2: AUD_NUT 1, "},
};

// NOLINTNEXTLINE(readability-identifier-naming): the name of a suite
class InspectMemoryOf : public testing::TestWithParam<way_to_show> {
protected:
    static outcome shown(const std::string& stream) {
        const temporary_folder folder;
        std::vector<std::string> arguments = GetParam().arguments;
        arguments.push_back(folder.write("stream", stream));
        outcome result = measured(arguments).run();
        EXPECT_NE(result.out.rfind(GetParam().end), std::string::npos);
        EXPECT_LT(result.peak_memory, bound);
        return result;
    }
};

constexpr std::size_t messages_of_unit = sanitized ? 50000 : 150000;

TEST_P(InspectMemoryOf, MessagesDoesNotGrowWithTheirNumber) {
    const outcome result = shown(stream_of(repeated(bytes("6400"), messages_of_unit)));
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "");
}

// Buffering periods that name SPS 16, which is out of range. Each fault tells another bit.
TEST_P(InspectMemoryOf, FaultsDoesNotGrowWithTheirNumber) {
    const outcome result = shown(stream_of(repeated(bytes("00020880"), messages_of_unit)));
    EXPECT_EQ(result.status, 1);
}

TEST_P(InspectMemoryOf, AMessageIsThatOfItsBytes) {
    constexpr std::size_t size = 9 * mebibyte;
    std::string message = bytes("05") + coded(size);
    // In one piece of memory: what this process holds when it starts the program counts as well.
    message.reserve(message.size() + size + 16);
    message.append(size, '\x55');
    EXPECT_EQ(shown(stream_of(std::move(message))).status, 0);
}

TEST_P(InspectMemoryOf, ALongPayloadTypeIsThatOfItsBytes) {
    constexpr std::size_t bytes_of_type = messages_of_unit;
    EXPECT_EQ(shown(stream_of(coded(255 * bytes_of_type) + coded(0))).status, 0);
}

TEST_P(InspectMemoryOf, AnExtensionIsThatOfItsBytes) {
    vps_syntax vps;
    vps.extension = bit_writer().u<1>(1);
    for (std::size_t i = 0; i < mebibyte / 4; i += 8) {
        vps.extension.u<64>(0x5555555555555555);
    }
    EXPECT_EQ(shown(annex_b_unit(VPS_NUT, vps.rbsp()) + bytes("000001 460150")).status, 0);
}

INSTANTIATE_TEST_SUITE_P(Ways, InspectMemoryOf, testing::ValuesIn(ways),
                         [](const testing::TestParamInfo<way_to_show>& way) {
                             return way.param.name;
                         });

TEST(InspectMemory, CountsTheFaultsThatItDoesNotKeep) {
    const temporary_folder folder;
    const std::string path = folder.write("stream", stream_of(repeated(bytes("00020880"), 1000)));
    const outcome result = run({"dump", "--json", path});
    const nlohmann::json unit = nlohmann::json::parse(result.out.substr(0, result.out.find('\n')));
    EXPECT_EQ(unit.at("faults").size(), 257U);
    EXPECT_EQ(unit.at("faults").at(256), "and 744 more faults in this unit");
    const std::string last = "kovran: " + path + ": and 744 more faults\n";
    EXPECT_EQ(result.err.substr(result.err.size() - last.size()), last);
    EXPECT_NE(run({"info", path}).out.find("faults        1000\n"), std::string::npos);
}

// recovery_point() with se(v) 40000, of which 80000 is the code, in 17 bits behind 16 zeros.
TEST(InspectMemory, ListsEveryElementOutOfItsRange) {
    const temporary_folder folder;
    const std::string messages = repeated(bytes("0605 00009c4010"), 1000);
    const std::string path = folder.write("stream", stream_of(messages));
    const outcome result = run({"dump", "--json", path});
    const nlohmann::json unit = nlohmann::json::parse(result.out.substr(0, result.out.find('\n')));
    EXPECT_EQ(unit.at("out_of_range").size(), 1000U);
    EXPECT_EQ(unit.at("out_of_range").at(999), "sei_message[999].recovery_poc_cnt");
}

// ---- Streams of many things to remember

TEST(InspectMemory, OfInfoDoesNotGrowWithThePayloadTypes) {
    std::string messages;
    for (std::size_t type = 1000; type < 1100; ++type) {
        messages += coded(type) + coded(0);
    }
    const outcome result =
        program({"info", "-"}).input(stream_of(messages + bytes("0300") + messages)).run();
    EXPECT_EQ(result.status, 0);
    std::string told = "SEI           ";
    for (std::size_t type = 1000; type < 1032; ++type) {
        told += "payload_type_" + std::to_string(type) + " 2, ";
    }
    told.insert(14, "filler_payload 1, ");
    told += "and 136 of other types\n";
    EXPECT_NE(result.out.find(told), std::string::npos) << result.out;
}

// A PPS that names SPS 0. Its identifier is 2^19 - 1 and some more; that and the other identifier,
// which is 1 bit, fill 5 bytes.
std::string pps_with_large_id(unsigned int more, const std::string& behind_identifiers) {
    std::string unit = bytes("000001 4401");
    const std::uint64_t identifiers = ((std::uint64_t{1} << 19) + more) << 1 | 1;
    for (int shift = 32; shift >= 0; shift -= 8) {
        unit += static_cast<char>(identifiers >> shift & 0xFF);
    }
    return unit + behind_identifiers;
}

// Of PPSs whose identifiers only the library's own rules allow.
TEST(InspectMemory, OfDifferencesDoesNotGrowWithTheParameterSets) {
    const temporary_folder folder;
    const std::string path = folder.file("stream");
    std::ofstream stream(path, std::ios::binary);
    stream << annex_b_unit(VPS_NUT, vps_syntax().rbsp())
           << annex_b_unit(SPS_NUT, sps_syntax().rbsp());
    pps_syntax pps;
    pps.identifiers = bit_writer();
    const std::vector<unsigned char> rest = pps.rbsp().bytes();
    const std::string behind_identifiers(rest.begin(), rest.end());
    constexpr unsigned int sets = 200000;
    for (unsigned int i = 0; i < sets; ++i) {
        stream << pps_with_large_id(i, behind_identifiers);
    }
    stream.close();
    const outcome result = measured({"differences", path}).run();
    EXPECT_EQ(result.status, 1);
    EXPECT_NE(result.out.find("max_pps_id (7.4.3.3.1)"), std::string::npos) << result.out;
    EXPECT_NE(result.out.find("units: PPS_NUT " + std::to_string(sets)), std::string::npos);
    EXPECT_LT(result.peak_memory, sanitized ? bound : bound / 2);
}

}  // namespace
}  // namespace kovran::test
