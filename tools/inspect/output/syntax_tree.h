#ifndef KOVRAN_TOOLS_INSPECT_OUTPUT_SYNTAX_TREE_H
#define KOVRAN_TOOLS_INSPECT_OUTPUT_SYNTAX_TREE_H

#include "elements/trace_sink.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace kovran::inspect {

// The syntax elements of a unit as an indented tree of names, values and, where a table of the
// standard has one, their meaning.
class syntax_tree : public trace_sink {
public:
    [[nodiscard]] const std::string& text();

    void begin_structure(const h2645_common_element_name& name) override;
    void end_structure() override;
    void read(const shown_element& read_element) override;
    void fault(const h265_fault& found) override;
    void begin_message(const h265_nal_sei_reader& message) override;
    void opaque_payload(const h265_nal_sei_reader& message) override;
    void end_message() override;

private:
    void end_run();
    void line(std::string_view name, std::string_view value, std::string_view meaning = {});

    std::string text_;
    std::size_t depth_ = 1;

    // Entries of one array that are not yet on a line; none when the values are empty.
    h2645_common_element_name run_begin_;
    unsigned int run_end_ = 0;  // the innermost index behind the last one
    bool run_is_out_of_range_ = false;
    std::string run_values_;
    std::string run_meaning_;  // of a run of one
};

}  // namespace kovran::inspect

#endif  // KOVRAN_TOOLS_INSPECT_OUTPUT_SYNTAX_TREE_H
