#include "output/syntax_json.h"

#include "elements/meaning.h"
#include "elements/sei_name.h"
#include "output/fault_json.h"
#include "output/hexadecimal.h"

#include <fmt/format.h>

namespace kovran::inspect {

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
    at(read_element.name) = read_element.value;
    if (read_element.out_of_range) {
        out_of_range_.push_back(path_.to(to_string(read_element.name)));
    }
}

void syntax_json::fault(const h265_fault& found) {
    if (fault_.is_null()) {
        fault_ = fault_json(found, path_);
    }
}

// The last message of the array stays where it is while it is open.
void syntax_json::begin_message(const h265_nal_sei_reader& message) {
    nlohmann::ordered_json& messages = root_["sei_message"];
    messages.push_back({{"payload_type", message.payload_type},
                        {"payload_size", message.payload_size},
                        {"name", sei_name(message)}});
    open_.push_back(&messages.back());
    path_.open(fmt::format("sei_message[{}]", messages.size() - 1));
}

void syntax_json::opaque_payload(const h265_nal_sei_reader& message) {
    (*open_.back())["payload"] = hexadecimal(message.payload_begin, message.payload_end);
}

void syntax_json::end_message() {
    end_structure();
}

nlohmann::ordered_json& syntax_json::at(const h2645_common_element_name& name) {
    nlohmann::ordered_json* place = &(*open_.back())[std::string(name.prefix) + name.name];
    for (unsigned int i = 0; i < name.index_count; ++i) {
        place = &(*place)[name.indices[i]];
    }
    return *place;
}

}  // namespace kovran::inspect
