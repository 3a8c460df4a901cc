#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <sstream>
#include <string>
#include <vector>

#include "annex_b_unit.h"
#include "byte_string.h"
#include "program.h"
#include "readings.h"
#include "support/bit_writer.h"
#include "support/parameter_sets.h"

namespace kovran::test {
namespace {

// The keys and values of `dump --json` as docs/dump-schema.md has them.

std::string json_of(const std::string& stream, const std::vector<std::string>& options = {}) {
    std::vector<std::string> arguments = {"dump", "--json", "-"};
    arguments.insert(arguments.end(), options.begin(), options.end());
    return program(arguments).input(stream).run().out;
}

std::vector<nlohmann::ordered_json> lines_of(const std::string& text) {
    std::vector<nlohmann::ordered_json> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(nlohmann::ordered_json::parse(line));
    }
    return lines;
}

// pic_type 3 is reserved, and there is no stop bit.
TEST(InspectJson, HasEveryKeyInItsPlace) {
    EXPECT_EQ(json_of(bytes("000001 4600 60"), {"--rules", "own"}),
              "{\"schema\":\"kovran-dump-1\",\"rules\":\"own\",\"index\":0,\"offset\":3,"
              "\"size\":3,\"nal_unit_type\":35,\"name\":\"AUD_NUT\",\"nuh_layer_id\":0,"
              "\"nuh_temporal_id_plus1\":0,\"syntax\":{\"pic_type\":3},"
              "\"out_of_range\":[\"pic_type\"],"
              "\"fault\":{\"kind\":\"trailing_bits\",\"element\":\"rbsp_stop_one_bit\",\"bit\":3,"
              "\"value\":0,\"lowest\":1,\"highest\":1},"
              "\"faults\":[\"nuh_temporal_id_plus1 is 0\",\"the access unit delimiter cannot be "
              "read: malformed trailing bits: rbsp_stop_one_bit at bit 3 is 0\"]}\n");
}

TEST(InspectJson, HasTheHeaderOfTheUnit) {
    // Type 48, layer 5, temporal identifier 2.
    EXPECT_EQ(json_of(bytes("000001 602b 80")),
              "{\"schema\":\"kovran-dump-1\",\"rules\":\"standard\",\"index\":0,\"offset\":3,"
              "\"size\":3,\"nal_unit_type\":48,\"name\":\"UNSPEC48\",\"nuh_layer_id\":5,"
              "\"nuh_temporal_id_plus1\":3,\"syntax\":{}}\n");
}

TEST(InspectJson, HasTheMessagesOfAUnit) {
    const auto line = lines_of(json_of(bytes("000001 5001 6402abcd ff05 00 0401ef 80"))).at(0);
    EXPECT_EQ(line.at("syntax").dump(),
              "{\"sei_message\":["
              "{\"payload_type\":100,\"payload_size\":2,\"name\":\"payload_type_100\","
              "\"payload\":\"abcd\"},"
              "{\"payload_type\":260,\"payload_size\":0,\"name\":\"payload_type_260\","
              "\"payload\":\"\"},"
              "{\"payload_type\":4,\"payload_size\":1,"
              "\"name\":\"user_data_registered_itu_t_t35\","
              "\"itu_t_t35_country_code\":239}]}");
}

// Two buffering periods, of SPS 5 and of SPS 2, neither of which is there.
TEST(InspectJson, HasTheFirstFaultOfSeveral) {
    const auto line = lines_of(json_of(bytes("000001 4e01 000134 000170 80"))).at(0);
    EXPECT_EQ(line.at("fault").at("parameter_set_id"), 5);
    EXPECT_EQ(line.at("fault").at("element"), "sei_message[0].bp_seq_parameter_set_id");
    EXPECT_EQ(line.at("faults").size(), 2U);
}

TEST(InspectJson, HasThePathsOfElementsInMessages) {
    vps_syntax vps;
    vps.header = bit_writer().u<4>(0).u<1>(1).u<1>(1).u<6>(1).u<3>(0).u<1>(1).u<16>(0xFFFF);
    // An unknown message, then active parameter sets with one SPS, whose second index is not there.
    bit_writer payload = bit_writer().u<4>(0).u<1>(0).u<1>(0).ue(0).ue(0).ue(7).trailing_bits();
    bit_writer messages = bit_writer().u<8>(99).u<8>(0).u<8>(129).u<8>(payload.size() / 8);
    append(messages, payload).trailing_bits();
    const auto line = lines_of(json_of(annex_b_unit(VPS_NUT, vps.rbsp()) +
                                       annex_b_unit(PREFIX_SEI_NUT, messages)))
                          .at(1);
    EXPECT_EQ(line.at("out_of_range").dump(), "[\"sei_message[1].layer_sps_idx[1]\"]");
    EXPECT_EQ(line.at("syntax").at("sei_message").at(1).at("layer_sps_idx").dump(), "[null,7]");
    EXPECT_FALSE(line.contains("fault"));
}

// The buffering periods of this stream have no HRD parameters to go by, which is found after their
// first element.
TEST(InspectJson, TellsAContradiction) {
    const auto line = lines_of(run({"dump", "--json", stream_path("hrd_novuihrd")}).out).at(4);
    EXPECT_EQ(line.at("fault").dump(),
              "{\"kind\":\"contradiction\","
              "\"element\":\"sei_message[0].bp_seq_parameter_set_id\",\"bit\":16,"
              "\"value\":0}");
}

TEST(InspectJson, HasAllElementsOfATableInItsRows) {
    vps_syntax vps;
    vps.layer_sets = bit_writer().u<6>(1).ue(2).u<2>(0b01).u<2>(0b11);
    const auto line = lines_of(json_of(annex_b_unit(VPS_NUT, vps.rbsp()))).at(0);
    EXPECT_EQ(line.at("syntax").at("layer_id_included_flag").dump(), "[null,[0,1],[1,1]]");
}

TEST(InspectJson, HasTheFaultsOfTheFraming) {
    const auto line = lines_of(json_of(bytes("000001 4601 50 000002"))).at(0);
    EXPECT_EQ(line.at("faults").dump(), "[\"00 00 02 inside, at 6\"]");
    EXPECT_FALSE(line.contains("fault"));
}

TEST(InspectJson, LeavesOutBytesThatAreNoUnit) {
    const auto lines = lines_of(json_of(bytes("aabb 000001 460150")));
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_EQ(lines[0].at("index"), 0);
}

}  // namespace
}  // namespace kovran::test
