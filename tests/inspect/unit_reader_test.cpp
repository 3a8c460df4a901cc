#include "elements/unit_reader.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "byte_string.h"
#include "program.h"

namespace kovran::inspect {
namespace {

using test::bytes;

nal_unit prefix_sei(std::vector<unsigned char>& bytes_of_unit) {
    nal_unit unit;
    unit.readable = true;
    unit.offset = 4;
    unit.size = bytes_of_unit.size();
    unit.bytes = bytes_of_unit.data();
    unit.header.nal_unit_type = PREFIX_SEI_NUT;
    unit.header.nuh_temporal_id_plus1 = 1;
    return unit;
}

// The first bit of the latest element of each name.
class first_bits : public trace_sink {
public:
    [[nodiscard]] std::size_t of(const std::string& name) const { return bits_.at(name); }

    void begin_structure(const h2645_common_element_name&) override {}
    void end_structure() override {}
    void read(const shown_element& element) override {
        bits_.insert_or_assign(element.name.name, element.first_bit);
    }
    void begin_message(const h265_nal_sei_reader&) override {}
    void end_message() override {}

private:
    std::map<std::string, std::size_t> bits_;
};

// ---- SEI messages behind bit 2^32

constexpr std::size_t half_gibibyte = std::size_t{1} << 29;

// User data of 512 MiB, up to its payload.
std::string start_of_user_data() {
    return bytes("4e01 05") + std::string(half_gibibyte / 255, '\xff') +
           static_cast<char>(half_gibibyte % 255);
}

// A buffering period of SPS 5, and trailing bits.
const std::string behind_user_data = bytes("000134 80");
const std::string fault_behind_user_data =
    "SEI message buffering_period cannot be read: SPS 5, which this message uses, is missing";

TEST(UnitReader, CountsBitsInLargeUnits) {
    const std::string start = start_of_user_data();
    std::vector<unsigned char> all(start.begin(), start.end());
    all.resize(all.size() + half_gibibyte, 0x55);
    const std::size_t message = all.size() - 2;  // its place behind the header
    all.insert(all.end(), behind_user_data.begin(), behind_user_data.end());

    nal_unit unit = prefix_sei(all);
    unit_reader reader(rule_set::standard);
    first_bits bits;
    reader.read(unit, bits);
    EXPECT_EQ(bits.of("last_payload_type_byte"), 8 * message);
    EXPECT_EQ(bits.of("last_payload_size_byte"), 8 * message + 8);
    EXPECT_EQ(bits.of("bp_seq_parameter_set_id"), 8 * message + 16);
    EXPECT_EQ(bits.of("rbsp_stop_one_bit"), 8 * message + 24);
    EXPECT_EQ(unit.faults.texts(), std::vector<std::string>{fault_behind_user_data});
    const bit_place place = reader.payload().place_of(8 * message + 16 + 4);
    EXPECT_EQ(place.byte, unit.offset + 2 + message + 2);
    EXPECT_EQ(place.bit, 4U);
}

TEST(UnitReader, ReadsLargeUnitsFromAPipe) {
    constexpr std::size_t piece_size = std::size_t{1} << 20;
    std::size_t pieces = 0;
    test::program inspector({"info", "-"});
    const test::outcome result = inspector
                                     .input([&pieces](std::string& piece) {
                                         constexpr std::size_t last = half_gibibyte / piece_size;
                                         piece = pieces == 0
                                                     ? bytes("000001") + start_of_user_data()
                                                 : pieces <= last ? std::string(piece_size, '\x55')
                                                                  : behind_user_data;
                                         return pieces++ <= last + 1;
                                     })
                                     .run();
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, "kovran: standard input: unit 0 at 3: " + fault_behind_user_data + '\n');
    EXPECT_NE(result.out.find("SEI           buffering_period 1, user_data_unregistered 1\n"),
              std::string::npos)
        << result.out;
}

}  // namespace
}  // namespace kovran::inspect
