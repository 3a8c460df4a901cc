#include "verbs/copy.h"

#include "output/destination.h"
#include "output/output.h"
#include "output/progress.h"
#include "output/report.h"
#include "process/failure.h"
#include "units/nal_rewriter.h"
#include "units/nal_walk.h"
#include "units/open_stream.h"
#include "units/stream_format.h"

#include <memory>
#include <new>

#include <fmt/format.h>

namespace kovran::inspect {
namespace {

exit_status copy_units(const copy_options& options, input& stream, output& copied) {
    const std::unique_ptr<nal_walk> walk = walk_nal_units(stream, options.from);
    nal_rewriter rewriter(options.from, options.to);
    progress shown(stream);
    report faults(stream.file().name(), copied, shown);

    nal_unit unit;
    while (walk->next(unit)) {
        faults.tell_faults(unit, "; not copied");
        if (!unit.readable) {
            continue;
        }
        if (!rewriter.rewrite(unit)) {
            throw failure(fmt::format("{}: {}: {} bytes do not fit a {} prefix",
                                      stream.file().name(), place_of(unit),
                                      rewriter.length_of(unit), format_name(options.to)));
        }
        if (rewriter.loses_zero_byte()) {
            faults.tell(unit, "ends with a zero byte, which Annex B cannot keep");
        }
        copied.write(rewriter.data(), rewriter.size());
        shown.show(unit.offset);
    }
    copied.finish();
    return faults.status();
}

}  // namespace

exit_status copy(const copy_options& options) {
    const std::unique_ptr<input> stream = open_stream(options.in, options.from);
    destination out(options.out);
    if (out.existing() && same_file(stream->file(), *out.existing())) {
        throw failure(out.existing()->name() + ": is also the input file");
    }
    const std::string consequence = "; " + out.after_failure();
    output copied(out.open());
    try {
        const exit_status status = copy_units(options, *stream, copied);
        out.commit();
        return status;
    } catch (const failure& reason) {
        throw failure(reason.what() + consequence);
    } catch (const std::bad_alloc&) {
        throw failure("not enough memory" + consequence);
    }
}

}  // namespace kovran::inspect
