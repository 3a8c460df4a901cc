#ifndef KOVRAN_TOOLS_INSPECT_OUTPUT_SYNTAX_JSON_H
#define KOVRAN_TOOLS_INSPECT_OUTPUT_SYNTAX_JSON_H

#include "elements/element_path.h"
#include "elements/trace_sink.h"

#include <vector>

#include <nlohmann/json.hpp>

namespace kovran::inspect {

// The syntax elements of a unit as JSON: structures are objects, indexed elements and structures
// arrays, all values numbers. Entries of an array that are not in the stream are null. Beside them
// the paths of those that the standard does not allow, and where reading stopped.
class syntax_json : public trace_sink {
public:
    syntax_json() { open_.push_back(&root_); }

    [[nodiscard]] const nlohmann::ordered_json& root() const { return root_; }
    [[nodiscard]] const nlohmann::ordered_json& out_of_range() const { return out_of_range_; }
    // The first one, as a unit of SEI messages can have several; null when there is none.
    [[nodiscard]] const nlohmann::ordered_json& first_fault() const { return fault_; }

    void begin_structure(const h2645_common_element_name& name) override;
    void end_structure() override;
    void read(const shown_element& read_element) override;
    void fault(const h265_fault& found) override;
    void begin_message(const h265_nal_sei_reader& message) override;
    void opaque_payload(const h265_nal_sei_reader& message) override;
    void end_message() override;

private:
    [[nodiscard]] nlohmann::ordered_json& at(const h2645_common_element_name& name);

    nlohmann::ordered_json root_ = nlohmann::ordered_json::object();
    std::vector<nlohmann::ordered_json*> open_;  // from the root to the structure that is walked
    element_path path_;                          // the same by names
    nlohmann::ordered_json out_of_range_ = nlohmann::ordered_json::array();
    nlohmann::ordered_json fault_;
};

}  // namespace kovran::inspect

#endif  // KOVRAN_TOOLS_INSPECT_OUTPUT_SYNTAX_JSON_H
