#ifndef KOVRAN_TOOLS_INSPECT_ELEMENTS_DIFFERENCE_CAUSE_H
#define KOVRAN_TOOLS_INSPECT_ELEMENTS_DIFFERENCE_CAUSE_H

#include "elements/unit_reader.h"
#include "units/nal_unit.h"

#include <cstdint>
#include <map>

namespace kovran::inspect {

// Which rule made a reading differ, and in which unit it was applied.
struct difference_cause {
    const char* rule = nullptr;
    std::uint64_t unit = 0;
};

// Remembers which parameter sets were read by a rule that differs, as the units that use them may
// then differ as well.
class difference_causes {
public:
    // What may make readings of this unit differ: the rule that was noted in it or, where there is
    // none, what is known of the parameter sets that it goes by. `reader` has read it.
    [[nodiscard]] difference_cause of(const nal_unit& unit, const unit_reader& reader,
                                      const char* noted_rule);

private:
    using causes_by_id = std::map<unsigned int, difference_cause>;

    causes_by_id vps_;
    causes_by_id sps_;
    causes_by_id pps_;
};

}  // namespace kovran::inspect

#endif  // KOVRAN_TOOLS_INSPECT_ELEMENTS_DIFFERENCE_CAUSE_H
