#include "show_info.h"

#include "input.h"
#include "output.h"
#include "progress.h"
#include "report.h"
#include "stream_summary.h"
#include "stream_walk.h"

#include <memory>

namespace kovran::inspect {

exit_status show_info(const info_options& options) {
    const std::unique_ptr<input> stream = open_input(options.file);
    stream_walk walk(*stream, options.format);
    output lines(file_descriptor::standard_output());
    progress shown(*stream);
    report faults(stream->file().name(), lines, shown);

    stream_summary summary;
    nal_unit unit;
    while (walk.next(unit)) {
        walk.read(unit, summary);
        summary.add(unit, walk.record());
        faults.tell_faults(unit);
        shown.show(unit.offset);
    }
    shown.clear();
    lines.write(summary.text());
    lines.finish();
    return faults.status();
}

}  // namespace kovran::inspect
