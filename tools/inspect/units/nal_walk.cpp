#include "units/nal_walk.h"

#include "process/bus_error.h"
#include "units/annex_b_walk.h"
#include "units/length_prefixed_walk.h"

namespace kovran::inspect {

bool nal_walk::next(nal_unit& unit) {
    unit.readable = false;
    unit.faults.clear();
    if (at_end_) {
        return false;
    }
    const bool taken = take_next(unit);
    require_mapped_bytes();
    if (taken) {
        any_unit_ = any_unit_ || unit.readable;
        return true;
    }
    at_end_ = true;
    if (any_unit_) {
        return false;
    }
    unit.offset = 0;
    unit.size = 0;
    unit.faults.emplace_back("no NAL unit found");
    return true;
}

std::unique_ptr<nal_walk> walk_nal_units(input& stream, h2645_common_nalfmt format) {
    if (format == nalfmt_annex_b) {
        return std::make_unique<annex_b_walk>(stream);
    }
    return std::make_unique<length_prefixed_walk>(stream, format);
}

}  // namespace kovran::inspect
