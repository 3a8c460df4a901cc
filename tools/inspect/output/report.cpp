#include "output/report.h"

#include "process/message.h"

#include <fmt/format.h>

namespace kovran::inspect {

void report::tell_faults(const nal_unit& unit, std::string_view consequence) {
    for (const std::string& fault : unit.faults) {
        tell(unit, unit.readable || unit.size == 0 ? fault : fault + std::string(consequence));
    }
}

void report::tell(const nal_unit& unit, std::string_view fault) {
    if (results_.file().is_terminal()) {
        results_.flush();
    }
    progress_.clear();
    write_message(fmt::format("kovran: {}: {}: {}\n", stream_name_, place_of(unit), fault));
    status_ = status_faults;
}

std::string place_of(const nal_unit& unit) {
    return unit.readable ? fmt::format("unit {} at {}", unit.index, unit.offset)
                         : fmt::format("at {}", unit.offset);
}

}  // namespace kovran::inspect
