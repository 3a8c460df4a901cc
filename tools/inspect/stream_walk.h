#ifndef KOVRAN_TOOLS_INSPECT_STREAM_WALK_H
#define KOVRAN_TOOLS_INSPECT_STREAM_WALK_H

#include <kovran/h2645_common/h2645_common_base_store.h>
#include <kovran/h2645_common/h2645_common_nalfmt.h>
#include <kovran/h265/h265_nal_aud.h>
#include <kovran/h265/h265_nal_pps.h>
#include <kovran/h265/h265_nal_sei_active_parameter_sets.h>
#include <kovran/h265/h265_nal_sei_buffering_period.h>
#include <kovran/h265/h265_nal_sei_pic_timing.h>
#include <kovran/h265/h265_nal_sei_reader.h>
#include <kovran/h265/h265_nal_sps.h>
#include <kovran/h265/h265_nal_vps.h>
#include <kovran/h265/h265_slice_segment_header.h>

#include "input.h"
#include "nal_unit.h"
#include "nal_walk.h"
#include "rbsp.h"
#include "trace_sink.h"

#include <memory>
#include <string>
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

// Walks a stream from its bytes to its records, as a host of the library does: it owns the stores,
// takes a record into its store when it could be read, and activates the SPS that a slice names.
// Prints nothing.
class stream_walk {
public:
    // `stream` must outlive the walk.
    stream_walk(input& stream, h2645_common_nalfmt format);

    // The next unit, as nal_walk has it.
    [[nodiscard]] bool next(nal_unit& unit);

    // Reads the unit that next() gave, tells `sink` about it, and adds what is wrong to its faults.
    void read(nal_unit& unit, stream_sink& sink);

    [[nodiscard]] const unit_record& record() const { return record_; }
    [[nodiscard]] rbsp& payload() { return rbsp_; }

private:
    void read_vps(nal_unit& unit, stream_sink& sink);
    void read_sps(nal_unit& unit, stream_sink& sink);
    void read_pps(nal_unit& unit, stream_sink& sink);
    void read_aud(nal_unit& unit, stream_sink& sink);
    void read_slice(nal_unit& unit, stream_sink& sink);
    void read_sei(nal_unit& unit, stream_sink& sink);
    void read_message(nal_unit& unit, const h265_nal_sei_reader& message, stream_sink& sink);
    [[nodiscard]] bool read_payload(const h265_nal_sei_reader& message, stream_sink& sink);

    std::unique_ptr<nal_walk> units_;
    rbsp rbsp_;
    unit_record record_;
    h2645_common_base_store<h265_nal_vps> vps_store_;
    h2645_common_base_store<h265_nal_sps> sps_store_;
    h2645_common_base_store<h265_nal_pps> pps_store_;
};

}  // namespace kovran::inspect

#endif  // KOVRAN_TOOLS_INSPECT_STREAM_WALK_H
