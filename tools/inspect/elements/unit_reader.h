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
    unit_reader(const unit_reader&) = delete;
    unit_reader& operator=(const unit_reader&) = delete;

    // Tells `sink` about the unit, and adds what is wrong to its faults. A unit of a layer above
    // the base layer is passed over.
    void read(nal_unit& unit, trace_sink& sink);
    // The same by the parameter sets of another reader, which stay as they are, as do this one's.
    void read_by_sets_of(unit_reader& other, nal_unit& unit, trace_sink& sink);

    // Of the latest unit.
    [[nodiscard]] const unit_record& record() const { return record_; }
    [[nodiscard]] const h265_fault& fault() const { return fault_; }
    [[nodiscard]] rbsp& payload() { return rbsp_; }

    [[nodiscard]] rule_set rules() const { return rules_; }
    [[nodiscard]] const parameter_set_stores& sets() const { return own_sets_; }

private:
    void read_unit(nal_unit& unit, trace_sink& sink);
    void read_vps(nal_unit& unit, trace_sink& sink);
    void read_sps(nal_unit& unit, trace_sink& sink);
    void read_pps(nal_unit& unit, trace_sink& sink);
    void read_aud(nal_unit& unit, trace_sink& sink);
    void read_slice(nal_unit& unit, trace_sink& sink);
    void read_sei(nal_unit& unit, trace_sink& sink);
    void read_message(nal_unit& unit, const h265_nal_sei_reader& message, trace_sink& sink);
    [[nodiscard]] bool read_payload(const h265_nal_sei_reader& message, trace_sink& sink);

    template <class Record, class... Context>
    [[nodiscard]] bool parse(Record& record, h2645_common_bitreader reader, trace_sink& sink,
                             Context&... context);
    [[nodiscard]] std::string why(std::string_view user) const;
    void add_reading_fault(nal_unit& unit, std::string_view what, std::string_view user) const;
    void add_trailing_bits_fault(nal_unit& unit, std::string_view what) const;

    rule_set rules_;
    rbsp rbsp_;
    unit_record record_;
    h265_trace trace_;
    h265_fault fault_;
    parameter_set_stores own_sets_;
    parameter_set_stores* sets_ = &own_sets_;
    bool keeps_sets_ = true;
    lost_parameter_sets lost_;
};

}  // namespace kovran::inspect

#endif  // KOVRAN_TOOLS_INSPECT_ELEMENTS_UNIT_READER_H
