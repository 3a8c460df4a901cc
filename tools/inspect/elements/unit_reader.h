#ifndef KOVRAN_TOOLS_INSPECT_ELEMENTS_UNIT_READER_H
#define KOVRAN_TOOLS_INSPECT_ELEMENTS_UNIT_READER_H

#include <kovran/h2645_common/h2645_common_base_store.h>
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_nal_aud.h>
#include <kovran/h265/h265_nal_pps.h>
#include <kovran/h265/h265_nal_sei_reader.h>
#include <kovran/h265/h265_nal_sps.h>
#include <kovran/h265/h265_nal_vps.h>
#include <kovran/h265/h265_slice_segment_header.h>
#include <kovran/h265/h265_trace.h>
#include <kovran/h265/sei/h265_nal_sei_message.h>

#include "elements/lost_parameter_sets.h"
#include "elements/rbsp.h"
#include "elements/rule_set.h"
#include "elements/trace_sink.h"
#include "units/nal_unit.h"

#include <string>
#include <string_view>
#include <variant>

namespace kovran::inspect {

// The record that a unit was read into. A unit of another kind, or of a layer above the base layer,
// has none, and one that could not be read has what was read of it.
using unit_record = std::variant<std::monostate, h265_nal_vps, h265_nal_sps, h265_nal_pps,
                                 h265_nal_aud, h265_slice_segment_header>;

struct parameter_set_stores {
    h2645_common_base_store<h265_nal_vps> vps;
    h2645_common_base_store<h265_nal_sps> sps;
    h2645_common_base_store<h265_nal_pps> pps;
};

// Reads the units of a stream, one after the other: it owns the stores, takes a record into its
// store when it could be read, and activates the SPS that a slice names. Prints nothing.
class unit_reader {
public:
    explicit unit_reader(rule_set rules) : rules_(rules) {}
    // Reads by the rules of one reader with the parameter sets of another, which it leaves as they
    // are. What could not be read is lost for it and for the first one alike.
    unit_reader(unit_reader& rules, unit_reader& sets)
        : rules_(rules.rules_), sets_(&sets.own_sets_), keeps_sets_(false), lost_(rules.lost_) {}
    unit_reader(const unit_reader&) = delete;
    unit_reader& operator=(const unit_reader&) = delete;

    // Tells `sink` about the unit, and adds what is wrong to its faults. A unit of a layer above
    // the base layer is passed over.
    void read(nal_unit& unit, trace_sink& sink);

    // The same in parts, for a caller that cannot hold all that is told of a unit. After begin(),
    // each read_part() reads an SEI message, what follows the last one, or the whole of another
    // unit. False when nothing is left. The unit must stay where it is.
    void begin(nal_unit& unit);
    // For a unit that another reader has just begun, whose payload and memory this one uses.
    void begin(nal_unit& unit, unit_reader& other);
    [[nodiscard]] bool read_part(trace_sink& sink);

    // Of the latest unit.
    [[nodiscard]] const unit_record& record() const { return record_; }
    [[nodiscard]] const h265_fault& fault() const { return fault_; }
    [[nodiscard]] rbsp& payload() { return *payload_; }

    [[nodiscard]] rule_set rules() const { return rules_; }
    [[nodiscard]] const parameter_set_stores& sets() const { return own_sets_; }

private:
    void begin_parts(nal_unit& unit);
    void read_unit(nal_unit& unit, trace_sink& sink);
    void read_vps(nal_unit& unit, trace_sink& sink);
    void read_sps(nal_unit& unit, trace_sink& sink);
    void read_pps(nal_unit& unit, trace_sink& sink);
    void read_aud(nal_unit& unit, trace_sink& sink);
    void read_slice(nal_unit& unit, trace_sink& sink);
    void read_message(trace_sink& sink);
    void read_message_by_standard(trace_sink& sink);
    [[nodiscard]] bool read_payload(trace_sink& sink);
    void read_behind_messages(trace_sink& sink);
    void activate_sps(unsigned int id);
    void add_truncation();

    template <class Record, class... Context>
    [[nodiscard]] bool parse(Record& record, h2645_common_bitreader reader, trace_sink& sink,
                             Context&... context);
    [[nodiscard]] std::string why(std::string_view user) const;
    void add_reading_fault(nal_unit& unit, std::string_view what, std::string_view user) const;
    void add_fault_of_read_structure(nal_unit& unit, std::string_view what) const;

    rule_set rules_;
    rbsp own_payload_;
    rbsp* payload_ = &own_payload_;
    h265_trace own_trace_;
    h265_trace* trace_ = &own_trace_;
    unit_record record_;
    h265_fault fault_;
    parameter_set_stores own_sets_;
    parameter_set_stores* sets_ = &own_sets_;
    bool keeps_sets_ = true;
    lost_parameter_sets own_lost_;
    lost_parameter_sets* lost_ = &own_lost_;

    nal_unit* unit_ = nullptr;  // of which parts are left; null when none are
    h265_nal_sei_reader messages_;
    h265_nal_sei_message message_;
};

}  // namespace kovran::inspect

#endif  // KOVRAN_TOOLS_INSPECT_ELEMENTS_UNIT_READER_H
