#include "verbs/show_info.h"

#include "elements/unit_reader.h"
#include "output/output.h"
#include "output/progress.h"
#include "output/report.h"
#include "output/stream_summary.h"
#include "units/nal_walk.h"
#include "units/open_stream.h"

#include <memory>

namespace kovran::inspect {

exit_status show_info(const info_options& options) {
    const std::unique_ptr<input> stream = open_stream(options.file, options.format);
    const std::unique_ptr<nal_walk> units = walk_nal_units(*stream, options.format);
    unit_reader reader(options.rules);
    output lines(file_descriptor::standard_output());
    progress shown(*stream);
    report faults(stream->file().name(), lines, shown);

    stream_summary summary(options.rules);
    nal_unit unit;
    while (units->next(unit)) {
        reader.read(unit, summary);
        summary.add(unit, reader.record());
        faults.tell_faults(unit);
        shown.show(unit.offset);
    }
    shown.clear();
    lines.write(summary.text());
    lines.finish();
    return faults.status();
}

}  // namespace kovran::inspect
