#ifndef KOVRAN_TOOLS_INSPECT_OUTPUT_REPEATED_FAULTS_H
#define KOVRAN_TOOLS_INSPECT_OUTPUT_REPEATED_FAULTS_H

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace kovran::inspect {

// Counts faults that come again with the same text, as that of each slice of a stream whose PPS is
// lost. What it holds does not grow with the stream.
class repeated_faults {
public:
    // True when the text is new, so that this fault is to be told now. `place` is where it is.
    [[nodiscard]] bool add(std::string_view fault, const std::string& place);
    // Faults whose texts are not known.
    void add_others(std::uint64_t count) { others_ += count; }

    // A line for each text that came again, in the order of their first time, with the place of the
    // last one; and a line for the number of the faults whose texts are not kept.
    [[nodiscard]] std::vector<std::string> summary() const;

private:
    struct occurrences_of_fault {
        std::uint64_t count = 1;
        std::string last_place;
    };
    using occurrences_by_fault = std::map<std::string, occurrences_of_fault, std::less<>>;

    occurrences_by_fault faults_;
    std::vector<occurrences_by_fault::const_iterator> in_order_;
    std::uint64_t others_ = 0;
};

}  // namespace kovran::inspect

#endif  // KOVRAN_TOOLS_INSPECT_OUTPUT_REPEATED_FAULTS_H
