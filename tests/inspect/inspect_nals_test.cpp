#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <sstream>
#include <string>
#include <vector>

#include "byte_string.h"
#include "program.h"
#include "readings.h"
#include "temporary_folder.h"

namespace kovran::test {
namespace {

std::vector<nlohmann::json> json_lines(const std::string& text) {
    std::vector<nlohmann::json> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(nlohmann::json::parse(line));
    }
    return lines;
}

void expect_reading(const outcome& result, const std::string& name) {
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "");
    const nlohmann::json expected = units_of_reading(name);
    const std::vector<nlohmann::json> lines = json_lines(result.out);
    ASSERT_EQ(lines.size(), expected.size());
    for (std::size_t i = 0; i < lines.size(); ++i) {
        EXPECT_EQ(lines[i].at("index"), i);
        EXPECT_FALSE(lines[i].contains("faults"));
        for (const char* const field : {"offset", "prefix", "size", "nal_unit_type", "nuh_layer_id",
                                        "nuh_temporal_id_plus1"}) {
            EXPECT_EQ(lines[i].at(field), expected[i].at(field)) << field << " of unit " << i;
        }
    }
}

std::vector<std::string> names_of(const outcome& result) {
    std::vector<std::string> names;
    for (const nlohmann::json& line : json_lines(result.out)) {
        names.push_back(line.at("name"));
    }
    return names;
}

TEST(InspectNals, ShowsEveryStreamAsItsReading) {
    ASSERT_FALSE(stream_names().empty());
    for (const std::string& name : stream_names()) {
        SCOPED_TRACE(name);
        expect_reading(run({"nals", "--json", stream_path(name)}), name);
    }
}

TEST(InspectNals, ShowsEveryStreamFromStandardInput) {
    for (const std::string& name : stream_names()) {
        SCOPED_TRACE(name);
        program inspector({"nals", "-", "--json"});
        expect_reading(inspector.input(read_file(stream_path(name))).run(), name);
    }
}

TEST(InspectNals, AlignsColumnsUnderAHeading) {
    const outcome result = run({"nals", stream_path("x265_42_alpha"), "--limit", "6"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(result.out,
              "   index         offset  prefix        size  type               layer  tid\n"
              "       0              4       4          55  32 VPS_NUT             0    0\n"
              "       1             63       4          39  33 SPS_NUT             0    0\n"
              "       2            106       4          30  33 SPS_NUT             1    0\n"
              "       3            140       4           7  34 PPS_NUT             0    0\n"
              "       4            151       4           7  34 PPS_NUT             1    0\n"
              "       5            161       3           9  39 PREFIX_SEI_NUT      0    0\n");
}

TEST(InspectNals, ShowsTheTemporalId) {
    const temporary_folder folder;
    const std::string path = folder.write("tsa", bytes("000001 0413 80"));
    EXPECT_EQ(run({"nals", path}).out,
              "   index         offset  prefix        size  type               layer  tid\n"
              "       0              3       3           3   2 TSA_N               2    2\n");
}

TEST(InspectNals, NamesAllTypesAsTheStandard) {
    const std::vector<std::string> names = {
        "TRAIL_N",        "TRAIL_R",     "TSA_N",          "TSA_R",          "STSA_N",
        "STSA_R",         "RADL_N",      "RADL_R",         "RASL_N",         "RASL_R",
        "RSV_VCL_N10",    "RSV_VCL_R11", "RSV_VCL_N12",    "RSV_VCL_R13",    "RSV_VCL_N14",
        "RSV_VCL_R15",    "BLA_W_LP",    "BLA_W_RADL",     "BLA_N_LP",       "IDR_W_RADL",
        "IDR_N_LP",       "CRA_NUT",     "RSV_IRAP_VCL22", "RSV_IRAP_VCL23", "RSV_VCL24",
        "RSV_VCL25",      "RSV_VCL26",   "RSV_VCL27",      "RSV_VCL28",      "RSV_VCL29",
        "RSV_VCL30",      "RSV_VCL31",   "VPS_NUT",        "SPS_NUT",        "PPS_NUT",
        "AUD_NUT",        "EOS_NUT",     "EOB_NUT",        "FD_NUT",         "PREFIX_SEI_NUT",
        "SUFFIX_SEI_NUT", "RSV_NVCL41",  "RSV_NVCL42",     "RSV_NVCL43",     "RSV_NVCL44",
        "RSV_NVCL45",     "RSV_NVCL46",  "RSV_NVCL47",     "UNSPEC48",       "UNSPEC49",
        "UNSPEC50",       "UNSPEC51",    "UNSPEC52",       "UNSPEC53",       "UNSPEC54",
        "UNSPEC55",       "UNSPEC56",    "UNSPEC57",       "UNSPEC58",       "UNSPEC59",
        "UNSPEC60",       "UNSPEC61",    "UNSPEC62",       "UNSPEC63"};
    std::string stream;
    for (unsigned int type = 0; type < 64; ++type) {
        stream += bytes("000001") + static_cast<char>(type << 1) + bytes("01 80");
    }
    const outcome result = program({"nals", "-", "--json"}).input(stream).run();
    EXPECT_EQ(names_of(result), names);

    for (const std::string& name : names) {
        const outcome one = program({"nals", "-", "--json", "--type", name}).input(stream).run();
        EXPECT_EQ(names_of(one), std::vector<std::string>{name});
    }
}

TEST(InspectNals, ReadsEachLengthPrefixedFormat) {
    const std::vector<std::string> units = {bytes("40010c"), bytes("4201 0101"), bytes("4401")};
    for (const std::size_t prefix_size : {1U, 2U, 3U, 4U}) {
        SCOPED_TRACE(prefix_size);
        const std::string format = "length" + std::to_string(prefix_size * 8);
        program inspector({"nals", "-", "--json", "--format", format});
        const outcome result = inspector.input(length_prefixed(units, prefix_size)).run();
        EXPECT_EQ(result.status, 0);
        EXPECT_EQ(result.err, "");
        const std::vector<nlohmann::json> lines = json_lines(result.out);
        ASSERT_EQ(lines.size(), 3U);
        std::size_t offset = 0;
        for (std::size_t i = 0; i < 3; ++i) {
            offset += prefix_size;
            EXPECT_EQ(lines[i].at("index"), i);
            EXPECT_EQ(lines[i].at("offset"), offset);
            EXPECT_EQ(lines[i].at("prefix"), prefix_size);
            EXPECT_EQ(lines[i].at("size"), units[i].size());
            EXPECT_EQ(lines[i].at("nal_unit_type"), 32 + i);
            EXPECT_EQ(lines[i].at("nuh_layer_id"), 0);
            EXPECT_EQ(lines[i].at("nuh_temporal_id_plus1"), 1);
            offset += units[i].size();
        }
    }
}

TEST(InspectNals, TakesAnnexBByItsName) {
    expect_reading(run({"nals", "--format", "annexb", "--json", stream_path("mainstill")}),
                   "mainstill");
}

TEST(InspectNals, CountsTrailingZeroBytesToTheNextStartCode) {
    const std::string stream = bytes("000001 40010c 000000 000001 420105 0000");
    const outcome result = program({"nals", "-", "--json"}).input(stream).run();
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "");
    const std::vector<nlohmann::json> lines = json_lines(result.out);
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(lines[0].at("offset"), 3);
    EXPECT_EQ(lines[0].at("prefix"), 3);
    EXPECT_EQ(lines[0].at("size"), 3);
    EXPECT_EQ(lines[1].at("offset"), 12);
    EXPECT_EQ(lines[1].at("prefix"), 6);
    EXPECT_EQ(lines[1].at("size"), 3);
}

TEST(InspectNals, KeepsTheJsonFieldsInOrder) {
    const std::string stream = bytes("000001 4001");
    EXPECT_EQ(program({"nals", "-", "--json"}).input(stream).run().out,
              "{\"index\":0,\"offset\":3,\"prefix\":3,\"size\":2,\"nal_unit_type\":32,"
              "\"name\":\"VPS_NUT\",\"nuh_layer_id\":0,\"nuh_temporal_id_plus1\":1}\n");
}

TEST(InspectNals, SelectsTypesByNumberAndName) {
    const std::vector<std::string> sets = {"VPS_NUT", "SPS_NUT", "PPS_NUT"};
    const std::string path = stream_path("mainstill");
    EXPECT_EQ(names_of(run({"nals", "--json", path, "--type", "32,33,34"})), sets);
    EXPECT_EQ(names_of(run({"nals", "--json", path, "--type", "32", "--type", "sps_nut,PPS_NUT"})),
              sets);
    EXPECT_EQ(names_of(run({"nals", "--json", "--type", "IDR_N_LP", path})),
              std::vector<std::string>{"IDR_N_LP"});
    EXPECT_EQ(run({"nals", "--json", "--type", "63", path}).out, "");
}

TEST(InspectNals, SelectsTypesByTheNamesThatAreUsual) {
    std::string stream;
    for (const char* const header :
         {"4001", "4201", "4401", "4601", "4e01", "5001", "2a01", "0201"}) {
        stream += bytes("000001") + bytes(header) + bytes("80");
    }
    const auto names_by = [&](const std::string& type) {
        return names_of(program({"nals", "--json", "-", "--type", type}).input(stream).run());
    };
    using list = std::vector<std::string>;
    EXPECT_EQ(names_by("VPS,SPS,pps"), (list{"VPS_NUT", "SPS_NUT", "PPS_NUT"}));
    EXPECT_EQ(names_by("AUD"), list{"AUD_NUT"});
    EXPECT_EQ(names_by("CRA"), list{"CRA_NUT"});
    EXPECT_EQ(names_by("SUFFIX"), list{"SUFFIX_SEI_NUT"});
    EXPECT_EQ(names_by("prefix_sei"), list{"PREFIX_SEI_NUT"});
    EXPECT_EQ(names_by("TRAIL_R"), list{"TRAIL_R"});
}

TEST(InspectNals, SelectsALayer) {
    const std::string path = stream_path("x265_42_alpha");
    EXPECT_EQ(names_of(run({"nals", "--json", path, "--layer", "1", "--limit", "3"})),
              (std::vector<std::string>{"SPS_NUT", "PPS_NUT", "IDR_N_LP"}));
    EXPECT_EQ(names_of(run({"nals", "--json", path, "--layer", "0", "--type", "PPS"})),
              std::vector<std::string>{"PPS_NUT"});
}

TEST(InspectNals, ALayerThatTheStreamLacksIsAFailure) {
    const std::string path = stream_path("x265_42_alpha");
    const outcome result = run({"nals", "--json", path, "--layer", "3"});
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err, "kovran: " + path +
                              ": there is no NAL unit of layer 3; the stream has layers 0 and 1\n");
    const outcome base = program({"nals", "-", "--layer", "1"}).input(bytes("000001 4001")).run();
    EXPECT_EQ(base.err,
              "kovran: standard input: there is no NAL unit of layer 1; the stream has layer 0\n");
    // The layer is there, only not with units of this type.
    EXPECT_EQ(run({"nals", path, "--layer", "1", "--type", "AUD"}).status, 0);
}

TEST(InspectNals, TellsTheLayersThatThereAre) {
    // Layers 0, 1, 9 and 63.
    const auto reason = [](const std::string& stream) {
        return program({"nals", "-", "--layer", "2"}).input(bytes(stream)).run().err;
    };
    const std::string start =
        "kovran: standard input: there is no NAL unit of layer 2; the stream ";
    EXPECT_EQ(reason("000001 4001 000001 4009"), start + "has layers 0 and 1\n");
    EXPECT_EQ(reason("000001 43f9 000001 4049 000001 4001 000001 4009"),
              start + "has layers 0, 1, 9 and 63\n");
    EXPECT_EQ(reason("000001 43f9"), start + "has layer 63\n");
}

// All that is asked for has to be true of a unit.
TEST(InspectNals, SelectsByLayerTypeAndLimitTogether) {
    const std::string stream =
        bytes("000001 4001 000001 4009 000001 4201 000001 4209 000001 4209 000001 4201");
    const auto indices = [&](const std::vector<std::string>& options) {
        std::vector<std::string> arguments = {"nals", "--json", "-"};
        arguments.insert(arguments.end(), options.begin(), options.end());
        std::vector<int> all;
        for (const nlohmann::json& line : json_lines(program(arguments).input(stream).run().out)) {
            all.push_back(line.at("index"));
        }
        return all;
    };
    using list = std::vector<int>;
    EXPECT_EQ(indices({"--layer", "1"}), (list{1, 3, 4}));
    EXPECT_EQ(indices({"--layer", "0"}), (list{0, 2, 5}));
    EXPECT_EQ(indices({"--layer", "1", "--type", "SPS"}), (list{3, 4}));
    EXPECT_EQ(indices({"--layer", "1", "--type", "SPS", "--limit", "1"}), list{3});
    EXPECT_EQ(indices({"--layer", "1", "--limit", "2"}), (list{1, 3}));
    EXPECT_EQ(indices({"--layer", "1", "--limit", "3"}), (list{1, 3, 4}));
    EXPECT_EQ(indices({"--layer", "1", "--nal", "3"}), list{3});
    EXPECT_EQ(indices({"--layer", "1", "--nal", "2"}), list{});
    EXPECT_EQ(indices({"--type", "VPS", "--nal", "2"}), list{});
    EXPECT_EQ(indices({"--nal", "5"}), list{5});
}

TEST(InspectNals, SelectsAUnit) {
    const std::string path = stream_path("mainstill");
    EXPECT_EQ(names_of(run({"nals", "--json", path, "--nal", "1"})),
              std::vector<std::string>{"SPS_NUT"});
}

TEST(InspectNals, AUnitBeyondTheEndIsAFailure) {
    const std::string path = stream_path("mainstill");
    const outcome result = run({"nals", "--json", path, "--nal", "4"});
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.err,
              "kovran: " + path + ": there is no NAL unit 4; the stream has 4 NAL units, 0 to 3\n");
    const outcome one = program({"nals", "-", "--nal", "1"}).input(bytes("000001 4001")).run();
    EXPECT_EQ(one.err,
              "kovran: standard input: there is no NAL unit 1; the stream has 1 NAL unit, 0\n");
    const outcome none = program({"nals", "-", "--nal", "0"}).input("no video").run();
    EXPECT_EQ(none.status, 2);
    EXPECT_NE(none.err.find("there is no NAL unit 0; the stream has no NAL units\n"),
              std::string::npos);
}

TEST(InspectNals, KeepsTheIndexOfSelectedUnits) {
    const outcome result = run({"nals", "--json", "--type", "20", stream_path("mainstill")});
    ASSERT_EQ(json_lines(result.out).size(), 1U);
    EXPECT_EQ(json_lines(result.out)[0].at("index"), 3);
}

TEST(InspectNals, LimitsTheUnitsShown) {
    const std::string path = stream_path("mainstill");
    EXPECT_EQ(names_of(run({"nals", "--json", "--limit", "2", path})),
              (std::vector<std::string>{"VPS_NUT", "SPS_NUT"}));
    EXPECT_EQ(names_of(run({"nals", "--json", "--limit", "1", "--type", "PPS_NUT", path})),
              std::vector<std::string>{"PPS_NUT"});
    EXPECT_EQ(names_of(run({"nals", "--json", "--limit", "100", path})).size(), 4U);
    EXPECT_EQ(run({"nals", "--json", "--limit", "0", path}).out, "");
}

TEST(InspectNals, ReadsNoFurtherThanTheLimit) {
    // The fault stands in the third unit.
    const std::string stream = bytes("000001 4001 000001 4201 000001 4400 80");
    EXPECT_EQ(program({"nals", "-", "--limit", "2"}).input(stream).run().status, 0);
    EXPECT_EQ(program({"nals", "-", "--limit", "3"}).input(stream).run().status, 1);
}

}  // namespace
}  // namespace kovran::test
