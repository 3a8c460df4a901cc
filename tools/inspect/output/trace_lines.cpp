#include "output/trace_lines.h"

#include "elements/meaning.h"
#include "elements/sei_name.h"
#include "output/hexadecimal.h"

#include <iterator>

#include <fmt/format.h>

namespace kovran::inspect {
namespace {

constexpr const char* line = "{:>12}  {:>8}  {:>5}  {:<58}  {:<6}  {}\n";

}  // namespace

void trace_lines::begin_structure(const h2645_common_element_name& name) {
    path_.open(to_string(name));
}

void trace_lines::end_structure() {
    path_.close();
}

void trace_lines::read(const shown_element& read_element) {
    const std::string value =
        is_extension_data(read_element) ? "not read" : fmt::format("{}", read_element.value);
    fmt::format_to(std::back_inserter(text_), line, place(read_element.first_bit),
                   read_element.first_bit, read_element.width,
                   path_.to(to_string(read_element.name)), read_element.descriptor, value);
}

void trace_lines::begin_message(const h265_nal_sei_reader& message) {
    path_.open(sei_name(message));
}

void trace_lines::opaque_payload(const h265_nal_sei_reader& message) {
    const auto bit = static_cast<std::size_t>(8 * (message.payload_begin - payload_.begin()));
    fmt::format_to(std::back_inserter(text_), line, place(bit), bit,
                   8 * (message.payload_end - message.payload_begin), path_.to("payload"), "bytes",
                   hexadecimal(message.payload_begin, message.payload_end));
}

void trace_lines::end_message() {
    end_structure();
}

std::string trace_lines::place(std::size_t bit) {
    const bit_place in_file = payload_.place_of(bit);
    return fmt::format("{}.{}", in_file.byte, in_file.bit);
}

}  // namespace kovran::inspect
