#include "output/syntax_json.h"

#include "elements/meaning.h"
#include "elements/sei_name.h"
#include "output/fault_json.h"
#include "output/hexadecimal.h"
#include "units/type_name.h"

#include <string>

#include <fmt/format.h>

namespace kovran::inspect {
namespace {

// An object to which keys are still to be added.
std::string open_object(const nlohmann::ordered_json& object) {
    std::string text = object.dump();
    text.pop_back();
    return text;
}

}  // namespace

syntax_json::syntax_json(const nal_unit& unit, rule_set rules, output& lines)
    : unit_(unit), lines_(lines) {
    open_.push_back(&object_);
    nlohmann::ordered_json header;
    header["schema"] = "kovran-dump-1";
    header["rules"] = name_of(rules);
    header["index"] = unit.index;
    header["offset"] = unit.offset;
    header["size"] = unit.size;
    header["nal_unit_type"] = static_cast<unsigned int>(unit.header.nal_unit_type);
    header["name"] = type_name(unit.header.nal_unit_type);
    header["nuh_layer_id"] = unit.header.nuh_layer_id;
    header["nuh_temporal_id_plus1"] = unit.header.nuh_temporal_id_plus1;
    lines_.write(open_object(header));
    lines_.write(",\"syntax\":");
}

void syntax_json::finish() {
    lines_.write(messages_ == 0 ? object_.dump() : "]}");
    if (!out_of_range_.empty()) {
        lines_.write(",\"out_of_range\":[");
        out_of_range_.write_to(lines_);
        lines_.write("]");
    }
    if (!fault_.is_null()) {
        lines_.write(",\"fault\":");
        lines_.write(fault_.dump());
    }
    if (!unit_.faults.empty()) {
        lines_.write(",\"faults\":");
        lines_.write(nlohmann::ordered_json(unit_.faults.texts()).dump());
    }
    lines_.write("}\n");
}

void syntax_json::begin_structure(const h2645_common_element_name& name) {
    nlohmann::ordered_json& structure = at(name);
    if (structure.is_null()) {
        structure = nlohmann::ordered_json::object();
    }
    open_.push_back(&structure);
    path_.open(to_string(name));
}

void syntax_json::end_structure() {
    open_.pop_back();
    path_.close();
}

void syntax_json::read(const shown_element& read_element) {
    if (is_framing(read_element) || is_extension_data(read_element)) {
        return;
    }
    nlohmann::ordered_json& place = at(read_element.name);
    if (is_extension_flag(read_element)) {
        place.push_back(read_element.value);
    } else {
        place = read_element.value;
    }
    if (read_element.out_of_range) {
        out_of_range_.add(fmt::format("{}\"{}\"", out_of_range_.empty() ? "" : ",",
                                      path_.to(to_string(read_element.name))));
    }
}

void syntax_json::fault(const h265_fault& found) {
    if (fault_.is_null()) {
        fault_ = fault_json(found, path_);
    }
}

void syntax_json::begin_message(const h265_nal_sei_reader& message) {
    object_ = {{"payload_type", message.payload_type},
               {"payload_size", message.payload_size},
               {"name", sei_name(message)}};
    payload_written_ = false;
    path_.open(fmt::format("sei_message[{}]", messages_));
    lines_.write(messages_ == 0 ? "{\"sei_message\":[" : ",");
    ++messages_;
}

// The last that is told of its message.
void syntax_json::opaque_payload(const h265_nal_sei_reader& message) {
    lines_.write(open_object(object_));
    lines_.write(",\"payload\":\"");
    write_hexadecimal(message.payload_begin, message.payload_end, lines_);
    lines_.write("\"");
    payload_written_ = true;
}

void syntax_json::end_message() {
    path_.close();
    lines_.write(payload_written_ ? "}" : object_.dump());
}

nlohmann::ordered_json& syntax_json::at(const h2645_common_element_name& name) {
    nlohmann::ordered_json* place = &(*open_.back())[std::string(name.prefix) + name.name];
    for (unsigned int i = 0; i < name.index_count; ++i) {
        place = &(*place)[name.indices[i]];
    }
    return *place;
}

}  // namespace kovran::inspect
