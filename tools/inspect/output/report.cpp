#include "output/report.h"

#include "process/message.h"
#include "process/printable.h"

#include <exception>

#include <fmt/format.h>

namespace kovran::inspect {

report::~report() {
    try {
        for (const std::string& line : repeated_.summary()) {
            write(line);
        }
    } catch (const std::exception&) {
        // Of memory or of the terminal; the faults were told once.
    }
}

void report::tell_faults(const nal_unit& unit, std::string_view consequence) {
    for (const std::string& fault : unit.faults) {
        tell(unit, unit.readable || unit.size == 0 ? fault : fault + std::string(consequence));
    }
    repeated_.add_others(unit.faults.more());
}

void report::tell(const nal_unit& unit, std::string_view fault) {
    status_ = status_faults;
    const std::string place = place_of(unit);
    if (repeated_.add(fault, place)) {
        write(fmt::format("{}: {}", place, fault));
    }
}

void report::write(std::string_view line) {
    if (results_.file().is_terminal()) {
        results_.flush();
    }
    progress_.clear();
    write_message(fmt::format("kovran: {}: {}\n", printable(stream_name_), printable(line)));
}

std::string place_of(const nal_unit& unit) {
    return unit.readable ? fmt::format("unit {} at {}", unit.index, unit.offset)
                         : fmt::format("at {}", unit.offset);
}

}  // namespace kovran::inspect
