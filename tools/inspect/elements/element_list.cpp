#include "elements/element_list.h"

#include "elements/compared_rules.h"
#include "elements/sei_name.h"

namespace kovran::inspect {

void element_list::begin_structure(const indexed_name& name) {
    path_.open(name);
}

void element_list::end_structure() {
    path_.close();
}

void element_list::read(const traced_element& read_element) {
    entries_.push_back({path_.to(to_string(read_element.name)), read_element.descriptor,
                        read_element.bit, read_element.width, read_element.value,
                        compared_rules::noted()});
}

void element_list::begin_message(const h265_nal_sei_reader& message) {
    begin_structure({sei_name(message), {}});
}

void element_list::end_message() {
    end_structure();
}

}  // namespace kovran::inspect
