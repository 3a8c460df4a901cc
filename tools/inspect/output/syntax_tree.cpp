#include "output/syntax_tree.h"

#include "elements/meaning.h"
#include "elements/sei_meaning.h"
#include "elements/sei_name.h"
#include "output/element_value.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

#include <fmt/format.h>

namespace kovran::inspect {

namespace {

unsigned int innermost_index(const h2645_common_element_name& name) {
    return name.index_count != 0 ? name.indices[name.index_count - 1] : 0;
}

// Whether `next` is the entry with the given innermost index of the array that `first` belongs to.
bool continues(const h2645_common_element_name& first, unsigned int innermost,
               const h2645_common_element_name& next) {
    const auto outer = first.indices.begin() + static_cast<std::ptrdiff_t>(first.index_count) - 1;
    return next.index_count != 0 && innermost_index(next) == innermost &&
           next.index_count == first.index_count && std::string_view(next.name) == first.name &&
           std::equal(first.indices.begin(), outer, next.indices.begin());
}

bool are_flags_of_an_extension(const h2645_common_element_name& first, const shown_element& next) {
    return is_extension_flag(next) && std::string_view(next.name.name) == first.name;
}

}  // namespace

void syntax_tree::begin_structure(const h2645_common_element_name& name) {
    end_run();
    if (is_nested_message(name)) {
        nested_message_ = to_string(name);
        framing_.emplace();
        return;
    }
    line(to_string(name), {});
    ++depth_;
}

void syntax_tree::end_structure() {
    end_run();
    --depth_;
}

void syntax_tree::read_framing(const shown_element& byte) {
    if (framing_->add(byte)) {
        line(nested_message_, {},
             fmt::format("payload type {}, {} bytes", framing_->payload_type(),
                         framing_->payload_size()));
        ++depth_;
        framing_.reset();
    }
}

void syntax_tree::read(const shown_element& read_element) {
    if (framing_) {
        read_framing(read_element);
        return;
    }
    if (is_framing(read_element)) {
        return;
    }
    if (is_extension_data(read_element)) {
        end_run();
        line(to_string(read_element.name), {}, fmt::format("{} bits", read_element.width));
        return;
    }
    if (read_element.form != value_form::number) {
        end_run();
        begin_line(to_string(read_element.name), /*padded=*/read_element.width != 0);
        lines_.write(line_);
        if (read_element.width != 0) {
            lines_.write("  ");
            write_value(read_element, lines_);
        }
        if (read_element.out_of_range) {
            lines_.write("  (not allowed here)");
        }
        lines_.write("\n");
        return;
    }
    if (!run_values_.empty() && !read_element.out_of_range && !run_is_out_of_range_ &&
        (continues(run_begin_, run_end_, read_element.name) ||
         are_flags_of_an_extension(run_begin_, read_element))) {
        run_values_ += fmt::format(" {}", read_element.value);
        run_meaning_.clear();
        ++run_end_;
        return;
    }
    end_run();
    run_begin_ = read_element.name;
    run_end_ = run_begin_.index_count == 0 ? 0 : innermost_index(run_begin_) + 1;
    run_is_out_of_range_ = read_element.out_of_range;
    run_values_ = fmt::format("{}", read_element.value);
    run_meaning_ = meaning_of(read_element);
    if (read_element.out_of_range) {
        run_meaning_ += run_meaning_.empty() ? "not allowed here" : ", not allowed here";
    }
}

void syntax_tree::fault(const h265_fault& found) {
    end_run();
    line("fault: " + kovran::to_string(found), {});
}

void syntax_tree::begin_message(const h265_nal_sei_reader& message) {
    end_run();
    line(sei_name(message.payload_type), {},
         fmt::format("payload type {}, {} bytes", message.payload_type, message.payload_size));
    ++depth_;
}

void syntax_tree::message(const h265_nal_sei_message& read) {
    end_run();
    for (const std::string& words : meaning_of(read)) {
        line("= " + words, {});
    }
}

void syntax_tree::end_message() {
    end_structure();
}

void syntax_tree::end_run() {
    if (run_values_.empty()) {
        return;
    }
    std::string name = to_string(run_begin_);
    if (run_begin_.index_count != 0 && run_end_ != innermost_index(run_begin_) + 1) {
        name.insert(name.size() - 1, fmt::format("..{}", run_end_ - 1));
    }
    line(name, run_values_, run_meaning_);
    run_values_.clear();
}

void syntax_tree::line(std::string_view name, std::string_view value, std::string_view meaning) {
    begin_line(name, /*padded=*/!value.empty() || !meaning.empty());
    if (!value.empty()) {
        fmt::format_to(std::back_inserter(line_), "  {}", value);
    }
    if (!meaning.empty()) {
        fmt::format_to(std::back_inserter(line_), "  ({})", meaning);
    }
    line_ += '\n';
    lines_.write(line_);
}

void syntax_tree::begin_line(std::string_view name, bool padded) {
    const std::size_t indentation = 2 * depth_;
    line_.clear();
    fmt::format_to(std::back_inserter(line_), "{:{}}{:<{}}", "", indentation, name,
                   padded ? 52 - indentation : 0);
}

}  // namespace kovran::inspect
