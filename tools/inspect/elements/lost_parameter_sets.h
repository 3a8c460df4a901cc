#ifndef KOVRAN_TOOLS_INSPECT_ELEMENTS_LOST_PARAMETER_SETS_H
#define KOVRAN_TOOLS_INSPECT_ELEMENTS_LOST_PARAMETER_SETS_H

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <utility>

namespace kovran::inspect {

// Remembers which parameter sets could not be read, as that explains the units that miss them.
class lost_parameter_sets {
public:
    // `kind` is "VPS", "SPS" or "PPS", for good; `unit` the index of the NAL unit.
    void add(std::string_view kind, unsigned int id, std::uint64_t unit);

    // The fault of a unit, called as in "slice", that uses a parameter set that is not there.
    [[nodiscard]] std::string missing(std::string_view kind, unsigned int id,
                                      std::string_view user) const;

private:
    // The first unit of each kind and identifier.
    std::map<std::pair<std::string_view, unsigned int>, std::uint64_t> units_;
};

}  // namespace kovran::inspect

#endif  // KOVRAN_TOOLS_INSPECT_ELEMENTS_LOST_PARAMETER_SETS_H
