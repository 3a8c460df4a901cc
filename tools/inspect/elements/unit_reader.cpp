#include "elements/unit_reader.h"

#include <kovran/h265/h265_nal_sei_active_parameter_sets.h>
#include <kovran/h265/h265_nal_sei_buffering_period.h>
#include <kovran/h265/h265_nal_sei_pic_timing.h>

#include "elements/sei_name.h"

#include <new>
#include <utility>

#include <fmt/format.h>

namespace kovran::inspect {
namespace {

// Clauses 7.4.3.2.1 and 7.4.3.3.1. They also bound what the stores can grow to.
constexpr unsigned int highest_sps_id = 15;
constexpr unsigned int highest_pps_id = 63;

// A reader of [begin, end) that stands at `place` and counts bits from `begin`. Its skip() does not
// reach as far in a large unit.
h2645_common_bitreader reader_at(const unsigned char* place, const unsigned char* begin,
                                 const unsigned char* end) {
    h2645_common_bitreader reader(begin, end);
    reader.current = place;
    return reader;
}

void tell_framing(const char* name, const char* descriptor, unsigned char width, unsigned int value,
                  std::size_t bit, trace_sink& sink) {
    shown_element element;
    element.name.name = name;
    element.descriptor = descriptor;
    element.first_bit = bit;
    element.width = width;
    element.value = value;
    sink.read(element);
}

// payloadType or payloadSize, as the elements that it is coded in, clause 7.3.5.
void tell_byte_run(const char* last_byte, h2645_common_bitreader& reader, trace_sink& sink) {
    for (unsigned int byte = 0xFF; byte == 0xFF;) {
        const std::size_t bit = reader.bit_position();
        byte = reader.get<unsigned int>(8);
        const bool last = byte != 0xFF;
        tell_framing(last ? last_byte : "ff_byte", last ? "u(8)" : "f(8)", 8, byte, bit, sink);
    }
}

void tell_trailing_bits(h2645_common_bitreader reader, trace_sink& sink) {
    const char* name = "rbsp_stop_one_bit";
    do {
        const std::size_t bit = reader.bit_position();
        tell_framing(name, "f(1)", 1, reader.get<unsigned int>(1), bit, sink);
        name = "rbsp_alignment_zero_bit";
    } while (reader.bits_to_byte_boundary() != 0);
}

// Only the base layer is.
bool is_read(const nal_unit& unit) {
    return unit.readable && unit.header.nuh_layer_id == 0;
}

// The coded slice segments of table 7-1; the types between and above them are reserved.
bool is_slice(h265_nal_unit_type type) {
    return type <= RASL_R || (type >= BLA_W_LP && type <= CRA_NUT);
}

bool is_sei(h265_nal_unit_type type) {
    return type == PREFIX_SEI_NUT || type == SUFFIX_SEI_NUT;
}

bool is_empty_and_opaque(const h265_nal_sei_message& message) {
    const auto* const bytes = std::get_if<h265_nal_sei_reserved_message>(&message.payload);
    return bytes != nullptr && bytes->reserved_sei_message_payload_byte.empty();
}

}  // namespace

void unit_reader::read(nal_unit& unit, trace_sink& sink) {
    begin(unit);
    while (read_part(sink)) {
    }
}

void unit_reader::begin(nal_unit& unit) {
    payload_ = &own_payload_;
    trace_ = &own_trace_;
    if (is_read(unit)) {
        payload_->decode(unit);
    }
    begin_parts(unit);
}

void unit_reader::begin(nal_unit& unit, unit_reader& other) {
    payload_ = other.payload_;
    trace_ = other.trace_;
    begin_parts(unit);
}

void unit_reader::begin_parts(nal_unit& unit) {
    record_ = {};
    fault_ = {};
    unit_ = is_read(unit) ? &unit : nullptr;
    if (unit_ != nullptr && is_sei(unit.header.nal_unit_type)) {
        payload_->strip_trailing_zero_bytes();
        messages_.set_ptr(payload_->begin(), payload_->end(), unit.header.nal_unit_type);
    }
}

bool unit_reader::read_part(trace_sink& sink) {
    if (unit_ == nullptr) {
        return false;
    }
    if (!is_sei(unit_->header.nal_unit_type)) {
        read_unit(*std::exchange(unit_, nullptr), sink);
    } else if (messages_.next_message()) {
        sink.begin_message(messages_);
        read_message(sink);
        sink.end_message();
    } else {
        read_behind_messages(sink);
        unit_ = nullptr;
    }
    return true;
}

void unit_reader::read_unit(nal_unit& unit, trace_sink& sink) {
    switch (unit.header.nal_unit_type) {
        case VPS_NUT:
            read_vps(unit, sink);
            break;
        case SPS_NUT:
            read_sps(unit, sink);
            break;
        case PPS_NUT:
            read_pps(unit, sink);
            break;
        case AUD_NUT:
            read_aud(unit, sink);
            break;
        default:
            if (is_slice(unit.header.nal_unit_type)) {
                read_slice(unit, sink);
            }
            break;
    }
}

template <class Record, class... Context>
bool unit_reader::parse(Record& record, h2645_common_bitreader reader, trace_sink& sink,
                        Context&... context) {
    if (rules_ == rule_set::standard && !sink.wants_elements()) {
        return record.parse_standard(reader, context..., &fault_);
    }
    bool read = false;
    try {
        read = rules_ == rule_set::standard
                   ? record.parse_standard(reader, context..., *trace_, &fault_)
                   : record.parse(reader, context..., *trace_, &fault_);
    } catch (const std::bad_alloc&) {
        replay(*trace_, payload_->begin(), 0, sink);
        throw;
    }
    if (sink.wants_elements()) {
        replay(*trace_, payload_->begin(), 0, sink);
        if (fault_.kind != h265_fault_kind::none) {
            sink.fault(fault_);
        }
    }
    return read;
}

// Each record is parsed afresh and goes into its store only when all of it could be read: a broken
// repetition of a parameter set leaves the good one in force.

void unit_reader::read_vps(nal_unit& unit, trace_sink& sink) {
    auto& vps = record_.emplace<h265_nal_vps>();
    if (!parse(vps, payload_->reader(), sink)) {
        add_reading_fault(unit, "the VPS", "VPS");
        lost_->add("VPS", vps.vps_video_parameter_set_id, unit.index);
        return;
    }
    add_fault_of_read_structure(unit, "VPS");
    if (keeps_sets_) {
        sets_->vps[vps.vps_video_parameter_set_id] = vps;
    }
}

void unit_reader::read_sps(nal_unit& unit, trace_sink& sink) {
    auto& sps = record_.emplace<h265_nal_sps>();
    if (!parse(sps, payload_->reader(), sink, sets_->vps)) {
        add_reading_fault(unit, "the SPS", "SPS");
        lost_->add("SPS", sps.sps_seq_parameter_set_id, unit.index);
        return;
    }
    add_fault_of_read_structure(unit, "SPS");
    if (sps.sps_seq_parameter_set_id > highest_sps_id) {
        unit.faults.push_back(fmt::format("SPS {} has an identifier above {}",
                                          sps.sps_seq_parameter_set_id, highest_sps_id));
    } else if (keeps_sets_) {
        sets_->sps[sps.sps_seq_parameter_set_id] = sps;
        if (sets_->sps.active_id == sets_->sps.no_id) {
            sets_->sps.active_id = sps.sps_seq_parameter_set_id;
        }
    }
}

void unit_reader::read_pps(nal_unit& unit, trace_sink& sink) {
    auto& pps = record_.emplace<h265_nal_pps>();
    if (!parse(pps, payload_->reader(), sink, sets_->sps)) {
        add_reading_fault(unit, "the PPS", "PPS");
        lost_->add("PPS", pps.pps_pic_parameter_set_id, unit.index);
        return;
    }
    add_fault_of_read_structure(unit, "PPS");
    if (pps.pps_pic_parameter_set_id > highest_pps_id) {
        unit.faults.push_back(fmt::format("PPS {} has an identifier above {}",
                                          pps.pps_pic_parameter_set_id, highest_pps_id));
    } else if (keeps_sets_) {
        sets_->pps[pps.pps_pic_parameter_set_id] = pps;
    }
}

void unit_reader::read_aud(nal_unit& unit, trace_sink& sink) {
    if (!parse(record_.emplace<h265_nal_aud>(), payload_->reader(), sink)) {
        add_reading_fault(unit, "the access unit delimiter", "delimiter");
    }
}

void unit_reader::read_slice(nal_unit& unit, trace_sink& sink) {
    auto& slice = record_.emplace<h265_slice_segment_header>();
    bool read = false;
    try {
        read = parse(slice, payload_->reader(), sink, sets_->pps, sets_->sps, sets_->vps,
                     unit.header.nal_unit_type);
    } catch (const std::bad_alloc&) {
        unit.faults.emplace_back("the slice segment header needs more memory than is available");
        return;
    }
    if (!read) {
        add_reading_fault(unit, "the slice segment header", "slice");
        return;
    }
    add_fault_of_read_structure(unit, "slice segment header");
    if (keeps_sets_) {
        const h265_nal_pps& pps = sets_->pps.at(slice.slice_pic_parameter_set_id);
        sets_->sps.active_id = pps.pps_seq_parameter_set_id;
    }
}

void unit_reader::read_message(trace_sink& sink) {
    if (rules_ == rule_set::standard) {
        read_message_by_standard(sink);
        return;
    }
    if (sink.wants_elements()) {
        h2645_common_bitreader reader =
            reader_at(messages_.message_begin, payload_->begin(), messages_.payload_begin);
        tell_byte_run("last_payload_type_byte", reader, sink);
        tell_byte_run("last_payload_size_byte", reader, sink);
    }
    if (messages_.truncated) {
        add_truncation();
    }
    if (!read_payload(sink)) {
        unit_->faults.push_back(fmt::format("SEI message {} cannot be read: {}",
                                            sei_name(messages_.payload_type), why("message")));
    }
}

void unit_reader::read_message_by_standard(trace_sink& sink) {
    const auto behind_header =
        static_cast<std::size_t>(messages_.message_begin - payload_->begin());
    bool read = false;
    try {
        read = sink.wants_elements()
                   ? message_.parse_standard(messages_, sets_->vps, sets_->sps, *trace_, &fault_)
                   : message_.parse_standard(messages_, sets_->vps, sets_->sps, &fault_);
    } catch (const std::bad_alloc&) {
        replay(*trace_, messages_.message_begin, behind_header, sink);
        throw;
    }
    fault_.first_bit += 8 * behind_header;
    if (sink.wants_elements()) {
        replay(*trace_, messages_.message_begin, behind_header, sink);
        if (is_empty_and_opaque(message_)) {
            sink.read(opaque_payload(payload_->begin(), messages_.payload_begin,
                                     messages_.payload_begin));
        }
        if (fault_.kind != h265_fault_kind::none) {
            sink.fault(fault_);
        }
    }
    sink.message(message_);
    if (messages_.truncated) {
        add_truncation();
    }
    if (!read && (!messages_.truncated || has_standard_name(messages_.payload_type))) {
        unit_->faults.push_back(fmt::format("SEI message {} cannot be read: {}",
                                            sei_name(messages_.payload_type), why("message")));
    } else if (read && fault_.kind != h265_fault_kind::none) {
        unit_->faults.push_back(fmt::format("SEI message {} was read, but {}",
                                            sei_name(messages_.payload_type), why("message")));
    }
    if (!h265_nal_sei_payload_is_in(messages_.payload_type, messages_.nal_unit_type)) {
        unit_->faults.push_back(
            fmt::format("SEI message {} stands in a {} SEI unit, where its type is reserved",
                        sei_name(messages_.payload_type),
                        messages_.nal_unit_type == PREFIX_SEI_NUT ? "prefix" : "suffix"));
    }
    if (messages_.nal_unit_type != PREFIX_SEI_NUT) {
        return;
    }
    if (const auto* const period = std::get_if<h265_nal_sei_buffering_period>(&message_.payload);
        period != nullptr) {
        activate_sps(period->bp_seq_parameter_set_id);
    } else if (const auto* const active =
                   std::get_if<h265_nal_sei_active_parameter_sets>(&message_.payload);
               active != nullptr) {
        activate_sps(active->active_seq_parameter_set_id.front());
    }
}

bool unit_reader::read_payload(trace_sink& sink) {
    const h265_nal_sei_reader& message = messages_;
    const h2645_common_bitreader reader =
        reader_at(message.payload_begin, payload_->begin(), message.payload_end);
    const bool prefix = message.nal_unit_type == PREFIX_SEI_NUT;
    if (prefix && message.payload_type == h265_nal_sei_payload_type_prefix_buffering_period) {
        h265_nal_sei_buffering_period period;
        const bool read = parse(period, reader, sink, sets_->sps);
        if (read) {
            activate_sps(period.bp_seq_parameter_set_id);
        }
        return read;
    }
    if (prefix && message.payload_type == h265_nal_sei_payload_type_prefix_pic_timing) {
        h265_nal_sei_pic_timing timing;
        return parse(timing, reader, sink, sets_->sps);
    }
    if (prefix && message.payload_type == h265_nal_sei_payload_type_prefix_active_parameter_sets) {
        h265_nal_sei_active_parameter_sets active;
        const bool read = parse(active, reader, sink, sets_->vps);
        if (read) {
            activate_sps(active.active_seq_parameter_set_id.front());
        }
        return read;
    }
    if (sink.wants_elements()) {
        sink.read(opaque_payload(payload_->begin(), message.payload_begin, message.payload_end));
    }
    return true;
}

void unit_reader::read_behind_messages(trace_sink& sink) {
    constexpr unsigned int cut_off = 0xFFFFFFFF;
    const bool whole = messages_.payload_type != cut_off && messages_.payload_size != cut_off;
    const bool any = messages_.payload_end != nullptr;
    if (!any || !whole || messages_.cursor != messages_.end ||
        messages_.payload_end == messages_.end) {
        unit_->faults.emplace_back("the SEI messages are not followed by valid trailing bits");
        return;
    }
    h2645_common_bitreader reader =
        reader_at(messages_.payload_end, payload_->begin(), payload_->end());
    if (sink.wants_elements()) {
        tell_trailing_bits(reader, sink);
    }
    if (!h2645_common_skip_rbsp_trailing_bits(reader)) {
        unit_->faults.emplace_back("the SEI messages are not followed by valid trailing bits");
    }
}

void unit_reader::activate_sps(unsigned int id) {
    if (keeps_sets_ && sets_->sps.find(id) != sets_->sps.end()) {
        sets_->sps.active_id = id;
    }
}

void unit_reader::add_truncation() {
    unit_->faults.push_back(fmt::format(
        "SEI message {} is truncated: {} of {} bytes are present", sei_name(messages_.payload_type),
        messages_.payload_end - messages_.payload_begin, messages_.payload_size));
}

// The latest fault, of what is called `user` in it.
std::string unit_reader::why(std::string_view user) const {
    if (fault_.kind != h265_fault_kind::parameter_set_missing) {
        return to_string(fault_);
    }
    if (fault_.parameter_set_id == sets_->sps.no_id) {
        return fmt::format("no {} is active", fault_.parameter_set);
    }
    return lost_->missing(fault_.parameter_set, fault_.parameter_set_id, user);
}

// Which parameter set is missing says by itself that `user` could not be read.
void unit_reader::add_reading_fault(nal_unit& unit, std::string_view what,
                                    std::string_view user) const {
    const bool set_missing = fault_.kind == h265_fault_kind::parameter_set_missing;
    unit.faults.push_back(set_missing ? why(user)
                                      : fmt::format("{} cannot be read: {}", what, why(user)));
}

void unit_reader::add_fault_of_read_structure(nal_unit& unit, std::string_view what) const {
    if (fault_.kind == h265_fault_kind::unknown_extension) {
        unit.faults.push_back(
            fmt::format("the {} was read, but its extension was {}", what, to_string(fault_)));
    } else if (fault_.kind != h265_fault_kind::none) {
        unit.faults.push_back(fmt::format("the {} was read, but {}", what, to_string(fault_)));
    }
}

}  // namespace kovran::inspect
