#include "verbs/show_differences.h"

#include "elements/difference_cause.h"
#include "elements/element_list.h"
#include "elements/unit_reader.h"
#include "output/difference_summary.h"
#include "output/output.h"
#include "output/progress.h"
#include "output/report.h"
#include "output/spool.h"
#include "units/nal_walk.h"
#include "units/open_stream.h"
#include "units/type_name.h"

#include <algorithm>
#include <memory>
#include <utility>

#include <fmt/format.h>

namespace kovran::inspect {
namespace {

// A unit in one of the readings.
struct reading_of_unit {
    nal_unit unit;
    element_list elements;
    h265_fault fault;

    explicit reading_of_unit(nal_unit read) : unit(std::move(read)) {}

    [[nodiscard]] const std::vector<element_list::entry>& entries() const {
        return elements.entries();
    }
};

bool same(const reading_of_unit& a, const reading_of_unit& b, std::size_t first) {
    return first == a.entries().size() && first == b.entries().size() &&
           a.unit.faults == b.unit.faults;
}

std::size_t first_difference(const reading_of_unit& a, const reading_of_unit& b) {
    const auto mismatch = std::mismatch(
        a.entries().begin(), a.entries().end(), b.entries().begin(), b.entries().end(),
        [](const auto& one, const auto& other) { return one.reads_like(other); });
    return static_cast<std::size_t>(mismatch.first - a.entries().begin());
}

// Whether one of them has at this place what the other has, be it the end.
bool alike_at(const reading_of_unit& a, const reading_of_unit& b, std::size_t element) {
    const std::size_t difference = first_difference(a, b);
    return difference > element || same(a, b, difference);
}

// The rule that decided on an element, or on the end of the list: the latest one up to there, as
// some change what stands further on.
const char* rule_at(const reading_of_unit& reading, std::size_t element) {
    std::size_t i = std::min(element + 1, reading.entries().size());
    while (i > 0 && reading.entries()[i - 1].rule == nullptr) {
        --i;
    }
    return i > 0 ? reading.entries()[i - 1].rule : nullptr;
}

// The first element that differs, or what there is in its place.
std::string shown(const reading_of_unit& reading, rule_set rules, std::size_t first) {
    std::string text = fmt::format("  {:<8}", name_of(rules));
    if (first < reading.entries().size()) {
        const auto& each = reading.entries()[first];
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

// Reads each unit three times: by the standard's rules, by the library's own, and by the library's
// own with the parameter sets that the standard's rules have given. Where the second has something
// else than the third in the place of the first difference, a parameter set is the cause.
class comparison {
public:
    comparison() : standard_(rule_set::standard), own_(rule_set::own) {}

    struct result {
        bool differs = false;
        difference_cause cause;
        std::string text;
    };

    result compare(const nal_unit& unit, std::vector<std::string>& standard_faults) {
        reading_of_unit by_rules_alone(unit);
        own_.read_by_sets_of(standard_, by_rules_alone.unit, by_rules_alone.elements);
        reading_of_unit by_standard(unit);
        standard_.read(by_standard.unit, by_standard.elements);
        reading_of_unit by_own(unit);
        own_.read(by_own.unit, by_own.elements);
        by_own.fault = own_.fault();
        standard_faults = by_standard.unit.faults;

        result found;
        const std::size_t first = first_difference(by_standard, by_own);
        found.differs = !same(by_standard, by_own, first);
        if (alike_at(by_own, by_rules_alone, first)) {
            found.cause = {rule_at(by_rules_alone, first), unit.index};
            if (found.differs && found.cause.rule == nullptr &&
                standard_.fault().kind == h265_fault_kind::data_ended) {
                found.cause.rule = "data_may_end";  // elements behind the end are not listed
            }
        }
        if (found.differs && found.cause.rule == nullptr) {
            found.cause = causes_.of_sets_used_by(standard_, by_own.fault);
        }
        // Of a set that reads alike, too: a rule may change what it means.
        causes_.remember(standard_, own_, found.cause);
        if (found.differs) {
            found.text =
                fmt::format("{}: {}\n", place_of(unit), type_name(unit.header.nal_unit_type)) +
                shown(by_standard, rule_set::standard, first) +
                shown(by_own, rule_set::own, first) + shown(found.cause, unit);
        }
        return found;
    }

private:
    unit_reader standard_;
    unit_reader own_;
    difference_causes causes_;
};

}  // namespace

exit_status show_differences(const differences_options& options) {
    const std::unique_ptr<input> stream = open_stream(options.file, options.format);
    const std::unique_ptr<nal_walk> units = walk_nal_units(*stream, options.format);
    output lines(file_descriptor::standard_output());
    progress shown_progress(*stream);
    report faults(stream->file().name(), lines, shown_progress);

    comparison readings;
    difference_summary summary;
    spool shown_units;
    nal_unit unit;
    while (units->next(unit)) {
        const comparison::result found = readings.compare(unit, unit.faults);
        faults.tell_faults(unit);
        if (unit.readable) {
            summary.count_unit();
        }
        if (found.differs) {
            summary.add(found.cause.rule, unit.header.nal_unit_type);
            if (options.all) {
                shown_units.add(found.text);
            }
        }
        shown_progress.show(unit.offset);
    }
    shown_progress.clear();
    lines.write(summary.text());
    if (options.all && summary.has_differences()) {
        lines.write("\n");
        shown_units.write_to(lines);
    }
    lines.finish();
    return faults.status();
}

}  // namespace kovran::inspect
