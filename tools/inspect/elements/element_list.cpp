#include "elements/element_list.h"

#include "elements/sei_name.h"

#include <string_view>
#include <utility>

namespace kovran::inspect {

void element_list::begin_structure(const h2645_common_element_name& name) {
    path_.open(to_string(name));
}

void element_list::end_structure() {
    path_.close();
}

void element_list::read(const shown_element& read_element) {
    if (read_element.is_opaque_payload) {
        has_opaque_payload_ = true;
        return;
    }
    const bool is_ff_byte = std::string_view(read_element.name.name) == "ff_byte";
    if (std::exchange(in_ff_bytes_, is_ff_byte) && is_ff_byte) {
        return;
    }
    entries_.push_back({path_.to(to_string(read_element.name)), read_element.descriptor,
                        read_element.first_bit, read_element.width, read_element.value,
                        read_element.rule});
}

void element_list::begin_message(const h265_nal_sei_reader& message) {
    path_.open(sei_name(message.payload_type));
}

void element_list::end_message() {
    end_structure();
}

}  // namespace kovran::inspect
