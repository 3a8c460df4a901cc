#include "verbs/copy.h"

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
#include <utility>

#include <fmt/format.h>

namespace kovran::inspect {
namespace {

file_descriptor open_output(const std::string& path) {
    return path == "-" ? file_descriptor::standard_output() : file_descriptor::open_to_write(path);
}

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
    file_descriptor file = open_output(options.out);
    if (same_file(stream->file(), file)) {
        throw failure(file.name() + ": is also the input file");
    }
    if (options.out != "-") {
        file.truncate();
    }
    const std::string out_is_incomplete = "; " + file.name() + " is incomplete";
    output copied(std::move(file));
    try {
        return copy_units(options, *stream, copied);
    } catch (const failure& reason) {
        throw failure(reason.what() + out_is_incomplete);
    } catch (const std::bad_alloc&) {
        throw failure("not enough memory" + out_is_incomplete);
    }
}

}  // namespace kovran::inspect
