#ifndef KOVRAN_TOOLS_INSPECT_UNITS_NAL_WALK_H
#define KOVRAN_TOOLS_INSPECT_UNITS_NAL_WALK_H

#include <kovran/h2645_common/h2645_common_nalfmt.h>

#include "input/input.h"
#include "units/nal_unit.h"

#include <memory>

namespace kovran::inspect {

// Takes a stream apart into its NAL units, and tells of every byte that is in none. Prints nothing.
class nal_walk {
public:
    nal_walk() = default;
    nal_walk(const nal_walk&) = delete;
    nal_walk& operator=(const nal_walk&) = delete;
    virtual ~nal_walk() = default;

    // The next unit, or the next bytes that are none; false at the end of the stream. The unit's
    // bytes can be read until the next call.
    [[nodiscard]] bool next(nal_unit& unit);

protected:
    // As next(), for a `unit` without faults that is not `readable` yet.
    [[nodiscard]] virtual bool take_next(nal_unit& unit) = 0;

private:
    bool any_unit_ = false;
    bool at_end_ = false;
};

// `stream` must outlive the walk, which is the only one to move its window.
[[nodiscard]] std::unique_ptr<nal_walk> walk_nal_units(input& stream, h2645_common_nalfmt format);

}  // namespace kovran::inspect

#endif  // KOVRAN_TOOLS_INSPECT_UNITS_NAL_WALK_H
