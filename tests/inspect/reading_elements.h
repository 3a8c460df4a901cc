#ifndef KOVRAN_TESTS_INSPECT_READING_ELEMENTS_H
#define KOVRAN_TESTS_INSPECT_READING_ELEMENTS_H

#include <nlohmann/json.hpp>

#include <cstddef>
#include <string>
#include <vector>

namespace kovran::test {

// A syntax element of a reading, with the standard's name.
struct expected_element {
    std::string name;
    std::string value;
    std::size_t bit;  // from the first one behind the NAL unit header
    std::size_t width;
};

// The value of bits that are passed over as one element.
constexpr const char* not_read = "not read";

// Of one unit. Reserved bits, which one reader takes 24 at a time, are put together again. Of
// messages inside a message there are no types and sizes.
[[nodiscard]] std::vector<expected_element> elements_of(const nlohmann::json& unit);

// Of an SEI unit up to its trailing bits, messages inside messages with their types and sizes.
// Bytes in a row are one element, as a trace has them: user_data_payload_byte[0..6].
[[nodiscard]] std::vector<expected_element> message_elements_of(const nlohmann::json& unit);

// Whether one reader, which leaves the 0xFF bytes of sizes out and the text behind some UUIDs, has
// left this element of a message out.
[[nodiscard]] bool is_left_out(const std::string& name,
                               const std::vector<expected_element>& messages);

// The place of the next element with this name; all.size() when there is none.
[[nodiscard]] std::size_t index_of(const std::vector<expected_element>& all,
                                   const std::string& name, std::size_t from = 0);

// Makes one element of the bits from this flag, when it is set, to the trailing bits.
void pass_over_extension(std::vector<expected_element>& all, const std::string& flag);

// Makes bytes of the extension of a slice segment header that the reading takes apart, clause
// F.7.3.6.1; kovran gives the bytes.
void put_slice_extension_into_bytes(std::vector<expected_element>& all);

// The first element of an SPS that is read otherwise: of a set that is predicted no pictures are
// kept, so that a set predicted from that has one pair of flags; all.size() when there is none.
[[nodiscard]] std::size_t first_of_a_chained_prediction(const std::vector<expected_element>& all);

// Whether a stream has an SPS of the base layer in which a set is predicted from a predicted one.
[[nodiscard]] bool has_chained_sets(const nlohmann::json& units);

// Whether an element of a slice segment header stands behind the part that the library's own rules
// read.
[[nodiscard]] bool is_behind_list_modification(const std::string& name);

// Whether the messages of this type are parsed.
[[nodiscard]] bool is_parsed_message(const std::string& payload_type);

// What an SEI unit has beside payloads.
[[nodiscard]] bool is_sei_framing(const std::string& name);

// The bits that fill up a payload.
[[nodiscard]] bool is_payload_bit(const std::string& name);

// The same, or those that extend it.
[[nodiscard]] bool is_payload_padding(const std::string& name);

}  // namespace kovran::test

#endif  // KOVRAN_TESTS_INSPECT_READING_ELEMENTS_H
