#include "output/json_writer.h"

#include "output/hexadecimal.h"

#include <cstdint>
#include <cstring>
#include <string>
#include <utility>
#include <vector>

namespace kovran::inspect {
namespace {

// What a binary value holds, as JSON has no pointers.
struct byte_range {
    const unsigned char* begin;
    const unsigned char* end;
};

// In ASCII: a terminal takes some of the other characters for commands.
std::string text_of(const nlohmann::ordered_json& value) {
    constexpr int on_one_line = -1;
    return value.dump(on_one_line, ' ', /*ensure_ascii=*/true,
                      nlohmann::ordered_json::error_handler_t::replace);
}

void write_array(const nlohmann::ordered_json& array, output& lines) {
    const char* before = "[";
    for (const auto& entry : array) {
        lines.write(before);
        write_json(entry, lines);
        before = ",";
    }
    lines.write(array.empty() ? "[]" : "]");
}

}  // namespace

nlohmann::ordered_json json_of_bytes(const unsigned char* begin, const unsigned char* end) {
    const byte_range bytes{begin, end};
    std::vector<std::uint8_t> binary(sizeof(bytes));
    std::memcpy(binary.data(), &bytes, sizeof(bytes));
    return nlohmann::ordered_json::binary(std::move(binary));
}

void write_json(const nlohmann::ordered_json& value, output& lines) {
    if (value.is_object()) {
        write_open_object(value, lines);
        lines.write("}");
    } else if (value.is_array()) {
        write_array(value, lines);
    } else if (value.is_binary()) {
        byte_range bytes{};
        std::memcpy(&bytes, value.get_binary().data(), sizeof(bytes));
        lines.write("\"");
        write_hexadecimal(bytes.begin, bytes.end, lines);
        lines.write("\"");
    } else {
        lines.write(text_of(value));
    }
}

void write_open_object(const nlohmann::ordered_json& object, output& lines) {
    lines.write("{");
    const char* before = "";
    for (const auto& [key, value] : object.items()) {
        lines.write(before);
        lines.write(text_of(key));
        lines.write(":");
        write_json(value, lines);
        before = ",";
    }
}

}  // namespace kovran::inspect
