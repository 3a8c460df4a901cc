#include "verbs/show_differences.h"

#include "elements/compared_rules.h"
#include "elements/difference_cause.h"
#include "elements/element_list.h"
#include "elements/unit_reader.h"
#include "output/output.h"
#include "output/progress.h"
#include "output/report.h"
#include "units/nal_walk.h"
#include "units/open_stream.h"
#include "units/type_name.h"

#include <algorithm>
#include <memory>

#include <fmt/format.h>

namespace kovran::inspect {
namespace {

// A unit in one of the two readings.
struct reading_of_unit {
    nal_unit unit;
    element_list elements;

    reading_of_unit(unit_reader& reader, nal_unit read) : unit(std::move(read)) {
        reader.read(unit, elements);
    }
};

// The first element that differs, or what there is in its place.
std::string shown(const reading_of_unit& reading, rule_set rules, std::size_t first) {
    std::string text = fmt::format("  {:<8}", name_of(rules));
    const auto& entries = reading.elements.entries();
    if (first < entries.size()) {
        const auto& each = entries[first];
        return text + fmt::format("  {:>8}  {:>5}  {:<58}  {:<6}  {}\n", each.bit, each.width,
                                  each.path, each.descriptor, each.value);
    }
    text += "  ends here";
    for (const std::string& fault : reading.unit.faults) {
        text += fmt::format(": {}", fault);
    }
    return text + '\n';
}

std::string shown(const difference_cause& cause, const nal_unit& unit) {
    if (cause.rule == nullptr) {
        return "  rule      not known\n";
    }
    return cause.unit == unit.index
               ? fmt::format("  rule      {}\n", cause.rule)
               : fmt::format("  rule      {}, in unit {}\n", cause.rule, cause.unit);
}

}  // namespace

exit_status show_differences(const differences_options& options) {
    const std::unique_ptr<input> stream = open_stream(options.file, options.format);
    const std::unique_ptr<nal_walk> units = walk_nal_units(*stream, options.format);
    output lines(file_descriptor::standard_output());
    progress shown_progress(*stream);
    report faults(stream->file().name(), lines, shown_progress);

    unit_reader standard(rule_set::standard);
    unit_reader own(rule_set::compared);
    difference_causes causes;
    std::uint64_t count = 0;
    std::uint64_t different = 0;
    nal_unit unit;
    while (units->next(unit)) {
        count += unit.readable ? 1 : 0;
        const reading_of_unit by_standard(standard, unit);
        compared_rules::noted() = nullptr;
        const reading_of_unit by_own(own, unit);
        faults.tell_faults(by_standard.unit);

        const auto& expected = by_standard.elements.entries();
        const auto& entries = by_own.elements.entries();
        const auto mismatch =
            std::mismatch(expected.begin(), expected.end(), entries.begin(), entries.end(),
                          [](const auto& a, const auto& b) { return a.reads_like(b); });
        const bool differs = mismatch.first != expected.end() || mismatch.second != entries.end() ||
                             by_standard.unit.faults != by_own.unit.faults;
        const bool at_element = differs && mismatch.second != entries.end();
        const difference_cause cause = causes.of(
            unit, standard, at_element ? mismatch.second->noted_rule : compared_rules::noted());
        if (differs) {
            const auto first = static_cast<std::size_t>(mismatch.first - expected.begin());
            ++different;
            shown_progress.clear();
            lines.write(
                fmt::format("{}: {}\n", place_of(unit), type_name(unit.header.nal_unit_type)) +
                shown(by_standard, rule_set::standard, first) +
                shown(by_own, rule_set::own, first) + shown(cause, unit));
        }
        shown_progress.show(unit.offset);
    }
    shown_progress.clear();
    lines.write(fmt::format("{} of {} NAL units are read differently\n", different, count));
    lines.finish();
    return faults.status();
}

}  // namespace kovran::inspect
