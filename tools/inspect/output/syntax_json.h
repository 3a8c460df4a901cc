#ifndef KOVRAN_TOOLS_INSPECT_OUTPUT_SYNTAX_JSON_H
#define KOVRAN_TOOLS_INSPECT_OUTPUT_SYNTAX_JSON_H

#include "elements/element_path.h"
#include "elements/nested_framing.h"
#include "elements/rule_set.h"
#include "elements/trace_sink.h"
#include "output/output.h"
#include "output/spool.h"
#include "units/nal_unit.h"

#include <cstdint>
#include <optional>
#include <vector>

#include <nlohmann/json.hpp>

namespace kovran::inspect {

// A unit as one line of JSON: its header, its syntax elements, and what is wrong with it.
// Structures are objects, indexed elements and structures arrays. Values are numbers; texts are
// strings, and so are bytes, by their hexadecimal digits, and what is wider than 63 bits. Entries
// of an array that are not in the stream are null; where they would be more than the standard ever
// leaves out, the element stands under its whole name instead. An element that a structure has more
// than once is an array of its values.
//
// The line is written as the unit is read: an SEI message when it ends, another unit at its end.
class syntax_json : public trace_sink {
public:
    // `unit` is the one that is walked.
    syntax_json(const nal_unit& unit, rule_set rules, output& lines);

    // The rest of the line, when all of the unit was told.
    void finish();

    void begin_structure(const h2645_common_element_name& name) override;
    void end_structure() override;
    void read(const shown_element& read_element) override;
    void fault(const h265_fault& found) override;
    void begin_message(const h265_nal_sei_reader& message) override;
    void message(const h265_nal_sei_message& read) override;
    void end_message() override;

private:
    [[nodiscard]] nlohmann::ordered_json& at(const h2645_common_element_name& name);

    const nal_unit& unit_;
    output& lines_;
    // The message that is walked, or all of a unit without messages.
    nlohmann::ordered_json object_ = nlohmann::ordered_json::object();
    std::vector<nlohmann::ordered_json*> open_;  // from the object to the structure that is walked
    element_path path_;                          // the same by names
    std::uint64_t messages_ = 0;
    std::optional<nested_framing> framing_;  // of a message in a message that begins
    spool out_of_range_;                     // paths in quotes, with commas in between
    nlohmann::ordered_json fault_;           // the first one; null when there is none
};

}  // namespace kovran::inspect

#endif  // KOVRAN_TOOLS_INSPECT_OUTPUT_SYNTAX_JSON_H
