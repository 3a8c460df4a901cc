#include "output/syntax_json.h"

#include "elements/meaning.h"
#include "elements/sei_meaning.h"
#include "elements/sei_name.h"
#include "output/element_value.h"
#include "output/fault_json.h"
#include "output/json_writer.h"
#include "units/type_name.h"

#include <cstddef>
#include <string>

#include <fmt/format.h>

namespace kovran::inspect {
namespace {

// A stream can number the objects of annotated_regions() and the texts about them as it likes.
constexpr std::size_t most_missing_entries = 1023;

nlohmann::ordered_json json_value(const shown_element& element) {
    switch (element.form) {
        case value_form::bytes:
            return json_of_bytes(element.begin, element.end);
        case value_form::text:
            return text_of(element);
        case value_form::bits:
            return "0x" + digits_of_bits(element);
        default:
            return element.value;
    }
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
    write_open_object(header, lines_);
    lines_.write(",\"syntax\":");
}

void syntax_json::finish() {
    if (messages_ == 0) {
        write_json(object_, lines_);
    } else {
        lines_.write("]}");
    }
    if (!out_of_range_.empty()) {
        lines_.write(",\"out_of_range\":[");
        out_of_range_.write_to(lines_);
        lines_.write("]");
    }
    if (!fault_.is_null()) {
        lines_.write(",\"fault\":");
        write_json(fault_, lines_);
    }
    if (!unit_.faults.empty()) {
        lines_.write(",\"faults\":");
        write_json(unit_.faults.texts(), lines_);
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
    if (is_nested_message(name)) {
        framing_.emplace();
    }
}

void syntax_json::end_structure() {
    open_.pop_back();
    path_.close();
}

void syntax_json::read(const shown_element& read_element) {
    if (framing_) {
        if (framing_->add(read_element)) {
            nlohmann::ordered_json& nested = *open_.back();
            nested["payload_type"] = framing_->payload_type();
            nested["payload_size"] = framing_->payload_size();
            nested["name"] = sei_name(framing_->payload_type());
            framing_.reset();
        }
        return;
    }
    if (is_framing(read_element) || is_extension_data(read_element)) {
        return;
    }
    nlohmann::ordered_json& place = at(read_element.name);
    if (is_extension_flag(read_element)) {
        place.push_back(read_element.value);
    } else if (place.is_null()) {
        place = json_value(read_element);
    } else {
        // The syntax has it more than once.
        if (!place.is_array()) {
            place = nlohmann::ordered_json::array({place});
        }
        place.push_back(json_value(read_element));
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
               {"name", sei_name(message.payload_type)}};
    path_.open(fmt::format("sei_message[{}]", messages_));
    lines_.write(messages_ == 0 ? "{\"sei_message\":[" : ",");
    ++messages_;
}

void syntax_json::message(const h265_nal_sei_message& read) {
    for (const std::string& words : meaning_of(read)) {
        object_["meaning"].push_back(words);
    }
}

void syntax_json::end_message() {
    path_.close();
    write_json(object_, lines_);
}

nlohmann::ordered_json& syntax_json::at(const h2645_common_element_name& name) {
    nlohmann::ordered_json& structure = *open_.back();
    const std::string key = std::string(name.prefix) + name.name;
    if (name.index_count != 0 && name.indices[0] > most_missing_entries) {
        const auto array = structure.find(key);
        const std::size_t entries = array != structure.end() ? array->size() : 0;
        if (name.indices[0] - most_missing_entries > entries) {
            return structure[to_string(name)];
        }
    }
    nlohmann::ordered_json* place = &structure[key];
    for (unsigned int i = 0; i < name.index_count; ++i) {
        place = &(*place)[name.indices[i]];
    }
    return *place;
}

}  // namespace kovran::inspect
