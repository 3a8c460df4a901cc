#include "verbs/show_differences.h"

#include "elements/difference_cause.h"
#include "elements/element_list.h"
#include "elements/first_difference.h"
#include "elements/unit_reader.h"
#include "output/difference_summary.h"
#include "output/output.h"
#include "output/progress.h"
#include "output/report.h"
#include "output/spool.h"
#include "units/nal_walk.h"
#include "units/open_stream.h"
#include "units/type_name.h"

#include <memory>
#include <optional>
#include <string>

#include <fmt/format.h>

namespace kovran::inspect {
namespace {

// A unit in one of the readings, of which it holds a part.
class reading_of_unit {
public:
    reading_of_unit(unit_reader& reader, const nal_unit& unit)
        : reader_(reader), unit_(unit), faults_(unit.faults) {}

    void begin() { reader_.begin(unit_); }
    void begin(reading_of_unit& other) { reader_.begin(unit_, other.reader_); }
    [[nodiscard]] bool read_part() {
        elements_.clear();
        unit_.faults.clear();
        const bool read = reader_.read_part(elements_);
        faults_.append(unit_.faults);
        return read;
    }

    [[nodiscard]] first_difference::part part() const {
        return {elements_.entries(), elements_.has_opaque_payload(), unit_.faults, reader_.fault()};
    }
    // Of all parts up to this one, and of the framing.
    [[nodiscard]] const fault_list& faults() const { return faults_; }

private:
    unit_reader& reader_;
    nal_unit unit_;  // has the faults of the part
    element_list elements_;
    fault_list faults_;
};

// What one of the readings has in the place of the difference.
std::string shown(const std::optional<first_difference::element>& element,
                  const reading_of_unit& reading, rule_set rules) {
    std::string text = fmt::format("  {:<8}", name_of(rules));
    if (element) {
        return text + fmt::format("  {:>8}  {:>5}  {:<58}  {:<6}  {}\n", element->bit,
                                  element->width, element->path, element->descriptor,
                                  element->value);
    }
    text += "  ends here";
    for (const std::string& fault : reading.faults().texts()) {
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
    comparison()
        : standard_(rule_set::standard), own_(rule_set::own), rules_alone_(own_, standard_) {}

    struct result {
        bool differs = false;
        difference_cause cause;
        std::string text;
    };

    // Leaves the unit with the faults that the standard's reading finds.
    result compare(nal_unit& unit) {
        reading_of_unit by_standard(standard_, unit);
        reading_of_unit by_own(own_, unit);
        reading_of_unit by_rules_alone(rules_alone_, unit);
        by_standard.begin();
        by_own.begin(by_standard);
        by_rules_alone.begin(by_standard);

        first_difference first;
        // By the rules alone before the standard's reading of the part changes the parameter sets.
        while (by_rules_alone.read_part() && by_standard.read_part() && by_own.read_part()) {
            first.compare(by_standard.part(), by_own.part(), by_rules_alone.part());
        }
        unit.faults = by_standard.faults();

        result found;
        found.differs = first.differs();
        found.cause = cause_of(first, unit);
        // Of a set that reads alike, too: a rule may change what it means.
        causes_.remember(standard_, own_, found.cause);
        if (found.differs) {
            found.text =
                fmt::format("{}: {}\n", place_of(unit), type_name(unit.header.nal_unit_type)) +
                shown(first.standard(), by_standard, rule_set::standard) +
                shown(first.own(), by_own, rule_set::own) + shown(found.cause, unit);
        }
        return found;
    }

private:
    [[nodiscard]] difference_cause cause_of(const first_difference& first,
                                            const nal_unit& unit) const {
        difference_cause cause;
        if (first.is_of_rules_alone()) {
            cause = {first.rule(), unit.index};
            if (first.differs() && cause.rule == nullptr &&
                standard_.fault().kind == h265_fault_kind::data_ended) {
                cause.rule = "data_may_end";  // elements behind the end are not listed
            }
        }
        if (first.differs() && cause.rule == nullptr) {
            cause = causes_.of_sets_used_by(standard_, own_.fault());
        }
        return cause;
    }

    unit_reader standard_;
    unit_reader own_;
    unit_reader rules_alone_;
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
        const comparison::result found = readings.compare(unit);
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
