#include "output/trace_lines.h"

#include "elements/meaning.h"
#include "elements/sei_name.h"
#include "output/element_value.h"

#include <cstddef>
#include <iterator>
#include <string_view>

#include <fmt/format.h>

namespace kovran::inspect {
namespace {

bool is_filler(const shown_element& element) {
    return element.run != 0 && element.name.name == std::string_view("ff_byte");
}

}  // namespace

void trace_lines::begin_structure(const h2645_common_element_name& name) {
    path_.open(to_string(name));
}

void trace_lines::end_structure() {
    path_.close();
}

void trace_lines::read(const shown_element& read_element) {
    if (is_filler(read_element)) {
        read_filler(read_element);
        return;
    }
    begin_line(to_string(read_element.name), read_element.descriptor, read_element.first_bit,
               read_element.width);
    if (is_extension_data(read_element)) {
        line_ += "not read\n";
        lines_.write(line_);
        return;
    }
    lines_.write(line_);
    write_value(read_element, lines_);
    lines_.write("\n");
}

// The bytes of filler_payload() are elements without an index.
void trace_lines::read_filler(const shown_element& filler) {
    constexpr std::size_t byte_bits = 8;
    std::size_t bit = filler.first_bit;
    for (const unsigned char* byte = filler.begin; byte != filler.end; ++byte, bit += byte_bits) {
        begin_line(filler.name.name, filler.descriptor, bit, byte_bits);
        fmt::format_to(std::back_inserter(line_), "{}\n", *byte);
        lines_.write(line_);
    }
}

void trace_lines::begin_message(const h265_nal_sei_reader& message) {
    path_.open(sei_name(message.payload_type));
}

void trace_lines::end_message() {
    end_structure();
}

void trace_lines::begin_line(const std::string& name, const char* descriptor, std::size_t bit,
                             std::size_t width) {
    const bit_place in_file = payload_.place_of(bit);
    line_.clear();
    fmt::format_to(std::back_inserter(line_), "{:>12}  {:>8}  {:>5}  {:<58}  {:<6}  ",
                   fmt::format("{}.{}", in_file.byte, in_file.bit), bit, width, path_.to(name),
                   descriptor);
}

}  // namespace kovran::inspect
