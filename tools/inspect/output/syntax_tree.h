#ifndef KOVRAN_TOOLS_INSPECT_OUTPUT_SYNTAX_TREE_H
#define KOVRAN_TOOLS_INSPECT_OUTPUT_SYNTAX_TREE_H

#include "elements/nested_framing.h"
#include "elements/trace_sink.h"
#include "output/output.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace kovran::inspect {

// The syntax elements of a unit as an indented tree of names, values and, where a table of the
// standard has one, their meaning.
class syntax_tree : public trace_sink {
public:
    explicit syntax_tree(output& lines) : lines_(lines) {}

    // To be called when all of the unit was told.
    void finish() { end_run(); }

    void begin_structure(const h2645_common_element_name& name) override;
    void end_structure() override;
    void read(const shown_element& read_element) override;
    void fault(const h265_fault& found) override;
    void begin_message(const h265_nal_sei_reader& message) override;
    void message(const h265_nal_sei_message& read) override;
    void end_message() override;

private:
    void end_run();
    void line(std::string_view name, std::string_view value, std::string_view meaning = {});
    // Part of the framing of a message in a message; the line of the message waits for all of it.
    void read_framing(const shown_element& byte);
    // Up to the name, which is padded to the column of the values if there is to be one.
    void begin_line(std::string_view name, bool padded);

    output& lines_;
    std::size_t depth_ = 1;
    std::string line_;                       // keeps its memory
    std::string nested_message_;             // the name of one that begins
    std::optional<nested_framing> framing_;  // of the same

    // Entries of one array, or flags of one extension, that are not yet on a line; none when the
    // values are empty.
    h2645_common_element_name run_begin_;
    unsigned int run_end_ = 0;  // the innermost index behind the last one
    bool run_is_out_of_range_ = false;
    std::string run_values_;
    std::string run_meaning_;  // of a run of one
};

}  // namespace kovran::inspect

#endif  // KOVRAN_TOOLS_INSPECT_OUTPUT_SYNTAX_TREE_H
