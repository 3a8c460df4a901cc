#include "verbs/show_syntax.h"

#include "elements/unit_reader.h"
#include "output/output.h"
#include "output/progress.h"
#include "output/report.h"
#include "output/syntax_json.h"
#include "output/syntax_tree.h"
#include "output/trace_lines.h"
#include "units/nal_walk.h"
#include "units/open_stream.h"

#include <memory>

#include <fmt/format.h>

namespace kovran::inspect {
namespace {

// For units that are read but not shown.
class no_output : public trace_sink {
public:
    [[nodiscard]] bool wants_elements() const override { return false; }
    void begin_structure(const h2645_common_element_name&) override {}
    void end_structure() override {}
    void read(const shown_element&) override {}
    void begin_message(const h265_nal_sei_reader&) override {}
    void end_message() override {}
};

std::string heading(const nal_unit& unit) {
    return fmt::format("{}: {}, {} bytes, layer {}, temporal id {}\n", place_of(unit),
                       type_name(unit.header.nal_unit_type), unit.size, unit.header.nuh_layer_id,
                       unit.header.nuh_temporal_id_plus1 - 1);
}

void show(unit_reader& reader, nal_unit& unit, syntax_style style, output& lines) {
    switch (style) {
        case syntax_style::tree: {
            lines.write(heading(unit));
            syntax_tree tree(lines);
            reader.read(unit, tree);
            tree.finish();
            lines.write("\n");
            break;
        }
        case syntax_style::json: {
            syntax_json json(unit, reader.rules(), lines);
            reader.read(unit, json);
            json.finish();
            break;
        }
        case syntax_style::trace: {
            lines.write(heading(unit));
            trace_lines trace(reader.payload(), lines);
            reader.read(unit, trace);
            break;
        }
    }
}

}  // namespace

exit_status show_syntax(const syntax_options& options) {
    const std::unique_ptr<input> stream = open_stream(options.file, options.format);
    const std::unique_ptr<nal_walk> units = walk_nal_units(*stream, options.format);
    unit_reader reader(options.rules);
    output lines(file_descriptor::standard_output());
    progress shown_progress(*stream);
    report faults(stream->file().name(), lines, shown_progress);

    if (options.style != syntax_style::json) {
        lines.write(fmt::format("rules: {}\n", name_of(options.rules)));
    }
    nal_unit unit;
    unit_selector selector(options.selection);
    while (!selector.is_done() && units->next(unit)) {
        if (selector.selects(unit)) {
            shown_progress.clear();
            show(reader, unit, options.style, lines);
        } else {
            no_output nothing;
            reader.read(unit, nothing);
        }
        faults.tell_faults(unit);
        shown_progress.show(unit.offset);
    }
    shown_progress.clear();
    lines.finish();
    selector.require_match(stream->file().name());
    return faults.status();
}

}  // namespace kovran::inspect
