#ifndef KOVRAN_TOOLS_INSPECT_OUTPUT_REPORT_H
#define KOVRAN_TOOLS_INSPECT_OUTPUT_REPORT_H

#include "output/output.h"
#include "output/progress.h"
#include "output/repeated_faults.h"
#include "process/exit_status.h"
#include "units/nal_unit.h"

#include <string>
#include <string_view>
#include <utility>

namespace kovran::inspect {

// Tells on standard error what is wrong with a stream. A fault that comes again is counted, and
// told of once more at the end.
class report {
public:
    // `results` and `shown` share the terminal with the messages.
    report(std::string stream_name, output& results, progress& shown)
        : stream_name_(std::move(stream_name)), results_(results), progress_(shown) {}

    report(const report&) = delete;
    report& operator=(const report&) = delete;
    // Tells of the faults that were counted, also when a failure ends the reading.
    ~report();

    // The faults of a unit, or of bytes that are none, which then have this consequence.
    void tell_faults(const nal_unit& unit, std::string_view consequence = {});
    void tell(const nal_unit& unit, std::string_view fault);

    [[nodiscard]] exit_status status() const { return status_; }

private:
    void write(std::string_view line);

    std::string stream_name_;
    output& results_;
    progress& progress_;
    repeated_faults repeated_;
    exit_status status_ = status_read;
};

// "unit 3 at 1234", or "at 1234" for bytes that are no unit.
[[nodiscard]] std::string place_of(const nal_unit& unit);

}  // namespace kovran::inspect

#endif  // KOVRAN_TOOLS_INSPECT_OUTPUT_REPORT_H
