#include "output/syntax_tree.h"

#include "elements/meaning.h"
#include "elements/sei_name.h"
#include "output/hexadecimal.h"

#include <algorithm>
#include <iterator>

#include <fmt/format.h>

namespace kovran::inspect {

namespace {

// Whether `next` is the entry with the given innermost index of the array that `first` belongs to.
bool continues(const indexed_name& first, std::size_t innermost, const indexed_name& next) {
    return !next.indices.empty() && next.indices.back() == innermost && next.name == first.name &&
           next.indices.size() == first.indices.size() &&
           std::equal(first.indices.begin(), first.indices.end() - 1, next.indices.begin());
}

}  // namespace

const std::string& syntax_tree::text() {
    end_run();
    return text_;
}

void syntax_tree::begin_structure(const indexed_name& name) {
    end_run();
    line(to_string(name), {});
    ++depth_;
}

void syntax_tree::end_structure() {
    end_run();
    --depth_;
}

void syntax_tree::read(const traced_element& read_element) {
    if (is_framing(read_element)) {
        return;
    }
    if (is_extension_data(read_element)) {
        end_run();
        line(to_string(read_element.name), {}, fmt::format("{} bits", read_element.width));
        return;
    }
    if (!run_values_.empty() && continues(run_begin_, run_end_, read_element.name)) {
        run_values_ += fmt::format(" {}", read_element.value);
        run_meaning_.clear();
        ++run_end_;
        return;
    }
    end_run();
    run_begin_ = read_element.name;
    run_end_ = run_begin_.indices.empty() ? 0 : run_begin_.indices.back() + 1;
    run_values_ = fmt::format("{}", read_element.value);
    run_meaning_ = meaning_of(read_element);
}

void syntax_tree::begin_message(const h265_nal_sei_reader& message) {
    end_run();
    line(sei_name(message), {},
         fmt::format("payload type {}, {} bytes", message.payload_type, message.payload_size));
    ++depth_;
}

void syntax_tree::opaque_payload(const h265_nal_sei_reader& message) {
    line("payload", hexadecimal(message.payload_begin, message.payload_end));
}

void syntax_tree::end_message() {
    end_structure();
}

void syntax_tree::end_run() {
    if (run_values_.empty()) {
        return;
    }
    std::string name = to_string(run_begin_);
    if (!run_begin_.indices.empty() && run_end_ != run_begin_.indices.back() + 1) {
        name.insert(name.size() - 1, fmt::format("..{}", run_end_ - 1));
    }
    line(name, run_values_, run_meaning_);
    run_values_.clear();
}

void syntax_tree::line(std::string_view name, std::string_view value, std::string_view meaning) {
    const std::size_t indentation = 2 * depth_;
    const std::size_t name_width = value.empty() && meaning.empty() ? 0 : 52 - 2 * depth_;
    fmt::format_to(std::back_inserter(text_), "{:{}}{:<{}}", "", indentation, name, name_width);
    if (!value.empty()) {
        fmt::format_to(std::back_inserter(text_), "  {}", value);
    }
    if (!meaning.empty()) {
        fmt::format_to(std::back_inserter(text_), "  ({})", meaning);
    }
    text_ += '\n';
}

}  // namespace kovran::inspect
