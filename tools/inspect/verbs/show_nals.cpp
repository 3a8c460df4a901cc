#include "verbs/show_nals.h"

#include "output/output.h"
#include "output/progress.h"
#include "output/report.h"
#include "units/nal_walk.h"
#include "units/open_stream.h"

#include <iterator>
#include <memory>

#include <fmt/format.h>
#include <nlohmann/json.hpp>

namespace kovran::inspect {
namespace {

std::string as_json(const nal_unit& unit) {
    nlohmann::ordered_json line;
    if (unit.readable) {
        line["index"] = unit.index;
    }
    line["offset"] = unit.offset;
    if (unit.readable) {
        line["prefix"] = unit.prefix;
    }
    line["size"] = unit.size;
    if (unit.readable) {
        line["nal_unit_type"] = static_cast<unsigned int>(unit.header.nal_unit_type);
        line["name"] = type_name(unit.header.nal_unit_type);
        line["nuh_layer_id"] = unit.header.nuh_layer_id;
        line["nuh_temporal_id_plus1"] = unit.header.nuh_temporal_id_plus1;
    }
    if (!unit.faults.empty()) {
        line["faults"] = unit.faults.texts();
    }
    return line.dump() + '\n';
}

// The columns are as wide as large streams need them: a pipe's size is not known beforehand.
std::string heading(bool colour) {
    return fmt::format("{}{:>8}  {:>13}  {:>6}  {:>10}  {:<17}  {:>5}  {:>3}{}\n",
                       colour ? bold : "", "index", "offset", "prefix", "size", "type", "layer",
                       "tid", colour ? usual_colour : "");
}

std::string as_text(const nal_unit& unit, bool colour) {
    const h265_nal_unit_type type = unit.header.nal_unit_type;
    const std::string_view type_colour = colour ? colour_of(type) : std::string_view{};
    return fmt::format("{:>8}  {:>13}  {:>6}  {:>10}  {}{:>2} {:<14}{}  {:>5}  {:>3}\n", unit.index,
                       unit.offset, unit.prefix, unit.size, type_colour,
                       static_cast<unsigned int>(type), type_name(type),
                       type_colour.empty() ? "" : usual_colour, unit.header.nuh_layer_id,
                       unit.header.nuh_temporal_id_plus1 - 1);
}

}  // namespace

exit_status show_nals(const nals_options& options) {
    const std::unique_ptr<input> stream = open_stream(options.file, options.format);
    const std::unique_ptr<nal_walk> walk = walk_nal_units(*stream, options.format);
    output lines(file_descriptor::standard_output());
    progress shown(*stream);
    report faults(stream->file().name(), lines, shown);
    const bool on_terminal = lines.file().is_terminal();
    const bool colour = wants_colour(options.colour, lines.file());

    const auto show = [&](const std::string& line) {
        if (on_terminal) {
            shown.clear();
        }
        lines.write(line);
        if (on_terminal) {
            lines.flush();
        }
    };

    if (!options.json) {
        show(heading(colour));
    }
    nal_unit unit;
    unit_selector selector(options.selection);
    while (!selector.is_done() && walk->next(unit)) {
        const bool selected = selector.selects(unit);
        if (options.json && (selected || !unit.readable)) {
            show(as_json(unit));
        } else if (selected) {
            show(as_text(unit, colour));
        }
        faults.tell_faults(unit);
        shown.show(unit.offset);
    }
    shown.clear();
    lines.finish();
    selector.require_match(stream->file().name());
    return faults.status();
}

}  // namespace kovran::inspect
