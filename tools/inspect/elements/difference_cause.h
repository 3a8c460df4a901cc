#ifndef KOVRAN_TOOLS_INSPECT_ELEMENTS_DIFFERENCE_CAUSE_H
#define KOVRAN_TOOLS_INSPECT_ELEMENTS_DIFFERENCE_CAUSE_H

#include <kovran/h265/h265_fault.h>

#include "elements/unit_reader.h"
#include "units/nal_unit.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string_view>
#include <utility>

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
    // What is known of the parameter sets that a unit goes by, which `reader` has read by the
    // standard's rules; `own_fault` is why the library's own could not read it, if so.
    [[nodiscard]] difference_cause of_sets_used_by(const unit_reader& reader,
                                                   const h265_fault& own_fault) const;

    // Of the parameter set that one of the readers, or both, could read; nothing happens after
    // another unit.
    void remember(const unit_reader& standard, const unit_reader& own,
                  const difference_cause& cause);

private:
    using set_name = std::pair<std::string_view, unsigned int>;

    [[nodiscard]] static std::optional<set_name> name_of_set(const unit_record& record);
    [[nodiscard]] difference_cause of(const set_name& name) const;
    [[nodiscard]] difference_cause of_pps(const unit_reader& reader, unsigned int id) const;
    [[nodiscard]] difference_cause of_sps(const unit_reader& reader, unsigned int id) const;

    std::map<set_name, difference_cause> causes_;
};

}  // namespace kovran::inspect

#endif  // KOVRAN_TOOLS_INSPECT_ELEMENTS_DIFFERENCE_CAUSE_H
