#ifndef KOVRAN_TOOLS_INSPECT_OUTPUT_DIFFERENCE_SUMMARY_H
#define KOVRAN_TOOLS_INSPECT_OUTPUT_DIFFERENCE_SUMMARY_H

#include <kovran/h265/h265_nal.h>

#include <cstdint>
#include <map>
#include <string>

namespace kovran::inspect {

// How many units the library's own rules read otherwise than the standard's, by rule and type.
class difference_summary {
public:
    void count_unit() { ++units_; }
    // `rule` is null when it is not known.
    void add(const char* rule, h265_nal_unit_type type);

    [[nodiscard]] bool has_differences() const { return different_ != 0; }

    // The number of units, then of each rule its name, clause and meaning and its units.
    [[nodiscard]] std::string text() const;

private:
    std::uint64_t units_ = 0;
    std::uint64_t different_ = 0;
    std::map<std::string, std::map<unsigned int, std::uint64_t>> units_by_rule_;
};

}  // namespace kovran::inspect

#endif  // KOVRAN_TOOLS_INSPECT_OUTPUT_DIFFERENCE_SUMMARY_H
