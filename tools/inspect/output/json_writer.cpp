#include "output/json_writer.h"

#include "output/hexadecimal.h"

#include <string>

namespace kovran::inspect {
namespace {

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

void write_json(const nlohmann::ordered_json& value, output& lines) {
    if (value.is_object()) {
        write_open_object(value, lines);
        lines.write("}");
    } else if (value.is_array()) {
        write_array(value, lines);
    } else if (value.is_binary()) {
        const auto& bytes = value.get_binary();
        lines.write("\"");
        write_hexadecimal(bytes.data(), bytes.data() + bytes.size(), lines);
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
