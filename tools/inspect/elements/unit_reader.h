#ifndef KOVRAN_TOOLS_INSPECT_ELEMENTS_UNIT_READER_H
#define KOVRAN_TOOLS_INSPECT_ELEMENTS_UNIT_READER_H

#include <kovran/h2645_common/h2645_common_base_store.h>
#include <kovran/h265/h265_nal_aud.h>
#include <kovran/h265/h265_nal_pps.h>
#include <kovran/h265/h265_nal_sei_active_parameter_sets.h>
#include <kovran/h265/h265_nal_sei_buffering_period.h>
#include <kovran/h265/h265_nal_sei_pic_timing.h>
#include <kovran/h265/h265_nal_sei_reader.h>
#include <kovran/h265/h265_nal_sps.h>
#include <kovran/h265/h265_nal_vps.h>
#include <kovran/h265/h265_slice_segment_header.h>

#include "elements/lost_parameter_sets.h"
#include "elements/rbsp.h"
#include "elements/rule_set.h"
#include "elements/trace_sink.h"
#include "units/nal_unit.h"

#include <variant>

namespace kovran::inspect {

// What a walk tells on its way through a unit, on top of its syntax elements: the reader stands on
// the SEI message that begins. Of the messages that no record is for, only the payload's bytes.
class stream_sink : public trace_sink {
public:
    virtual void begin_message(const h265_nal_sei_reader& message) = 0;
    virtual void opaque_payload(const h265_nal_sei_reader& message) = 0;
    virtual void end_message() = 0;
};

// The record that a unit was read into. A unit of another kind, or of a layer above the base layer,
// has none, and one that could not be read has what was read of it.
using unit_record = std::variant<std::monostate, h265_nal_vps, h265_nal_sps, h265_nal_pps,
                                 h265_nal_aud, h265_slice_segment_header>;

// Reads the units of a stream, one after the other, as a host of the library does: it owns the
// stores, takes a record into its store when it could be read, and activates the SPS that a slice
// names. Prints nothing.
class unit_reader {
public:
    explicit unit_reader(rule_set rules) : rules_(rules) {}

    // Tells `sink` about the unit, and adds what is wrong to its faults. A unit of a layer above
    // the base layer is passed over.
    void read(nal_unit& unit, stream_sink& sink);

    // Of the latest unit.
    [[nodiscard]] const unit_record& record() const { return record_; }
    [[nodiscard]] rbsp& payload() { return rbsp_; }

    [[nodiscard]] rule_set rules() const { return rules_; }
    [[nodiscard]] unsigned int active_sps_id() const { return sps_store_.active_id; }

private:
    template <class Rules>
    void read_by(nal_unit& unit, stream_sink& sink);
    template <class Rules>
    void read_vps(nal_unit& unit, stream_sink& sink);
    template <class Rules>
    void read_sps(nal_unit& unit, stream_sink& sink);
    template <class Rules>
    void read_pps(nal_unit& unit, stream_sink& sink);
    template <class Rules>
    void read_aud(nal_unit& unit, stream_sink& sink);
    template <class Rules>
    void read_slice(nal_unit& unit, stream_sink& sink);
    template <class Rules>
    void read_sei(nal_unit& unit, stream_sink& sink);
    template <class Rules>
    void read_message(nal_unit& unit, const h265_nal_sei_reader& message, stream_sink& sink);
    template <class Rules>
    [[nodiscard]] bool read_payload(const h265_nal_sei_reader& message, stream_sink& sink);

    rule_set rules_;
    rbsp rbsp_;
    unit_record record_;
    lost_parameter_sets lost_;
    h2645_common_base_store<h265_nal_vps> vps_store_;
    h2645_common_base_store<h265_nal_sps> sps_store_;
    h2645_common_base_store<h265_nal_pps> pps_store_;
};

}  // namespace kovran::inspect

#endif  // KOVRAN_TOOLS_INSPECT_ELEMENTS_UNIT_READER_H
