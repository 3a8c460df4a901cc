#ifndef KOVRAN_TOOLS_INSPECT_ELEMENTS_LOST_PARAMETER_SETS_H
#define KOVRAN_TOOLS_INSPECT_ELEMENTS_LOST_PARAMETER_SETS_H

#include <kovran/h265/h265_nal.h>

#include <cstdint>
#include <map>
#include <string>
#include <utility>

namespace kovran::inspect {

// Remembers which parameter sets could not be read, as that explains the units that miss them.
class lost_parameter_sets {
public:
    // `type` is VPS_NUT, SPS_NUT or PPS_NUT; `unit` the index of the NAL unit.
    void add(h265_nal_unit_type type, unsigned int id, std::uint64_t unit);

    // The fault of a unit, called as in "slice", that uses a parameter set that is not there.
    [[nodiscard]] std::string missing(h265_nal_unit_type type, unsigned int id,
                                      const char* user) const;

private:
    // The first unit of each type and identifier.
    std::map<std::pair<h265_nal_unit_type, unsigned int>, std::uint64_t> units_;
};

}  // namespace kovran::inspect

#endif  // KOVRAN_TOOLS_INSPECT_ELEMENTS_LOST_PARAMETER_SETS_H
