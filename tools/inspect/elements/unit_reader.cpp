#include "elements/unit_reader.h"

#include "h265/h265_nal_aud.syntax.h"
#include "h265/h265_nal_pps.syntax.h"
#include "h265/h265_nal_sei_active_parameter_sets.syntax.h"
#include "h265/h265_nal_sei_buffering_period.syntax.h"
#include "h265/h265_nal_sei_pic_timing.syntax.h"
#include "h265/h265_nal_sps.syntax.h"
#include "h265/h265_nal_vps.syntax.h"
#include "h265/h265_slice_segment_header.syntax.h"
#include "h265/reading_rules.h"

#include "elements/compared_rules.h"
#include "elements/sei_name.h"
#include "elements/tracing.h"
#include "units/type_name.h"

#include <new>
#include <utility>

#include <fmt/format.h>

namespace kovran::inspect {
namespace {

// Clauses 7.4.3.2.1 and 7.4.3.3.1. They also bound what the stores can grow to.
constexpr unsigned int highest_sps_id = 15;
constexpr unsigned int highest_pps_id = 63;

unsigned int bits_before(const unsigned char* begin, const unsigned char* place) {
    return static_cast<unsigned int>(8 * (place - begin));
}

// payloadType or payloadSize, as the elements that it is coded in, clause 7.3.5.
void tell_byte_run(const char* last_byte, h2645_common_bitreader& reader, trace_sink& sink) {
    for (unsigned int byte = 0xFF; byte == 0xFF;) {
        const std::size_t bit = reader.bit_position();
        byte = reader.get<unsigned int>(8);
        const bool last = byte != 0xFF;
        sink.read({{last ? last_byte : "ff_byte", {}}, last ? "u(8)" : "f(8)", bit, 8, byte});
    }
}

// The coded slice segments of table 7-1; the types between and above them are reserved.
bool is_slice(h265_nal_unit_type type) {
    return type <= RASL_R || (type >= BLA_W_LP && type <= CRA_NUT);
}

template <class Record>
bool lacks(const h2645_common_base_store<Record>& store, unsigned int id) {
    return !store.contains(id);
}

}  // namespace

void unit_reader::read(nal_unit& unit, stream_sink& sink) {
    record_ = {};
    if (!unit.readable || unit.header.nuh_layer_id != 0) {
        return;
    }
    rbsp_.decode(unit);
    switch (rules_) {
        case rule_set::standard:
            read_by<standard_rules>(unit, sink);
            break;
        case rule_set::own:
            read_by<own_rules>(unit, sink);
            break;
        case rule_set::compared:
            read_by<compared_rules>(unit, sink);
            break;
    }
}

template <class Rules>
void unit_reader::read_by(nal_unit& unit, stream_sink& sink) {
    switch (unit.header.nal_unit_type) {
        case VPS_NUT:
            read_vps<Rules>(unit, sink);
            break;
        case SPS_NUT:
            read_sps<Rules>(unit, sink);
            break;
        case PPS_NUT:
            read_pps<Rules>(unit, sink);
            break;
        case AUD_NUT:
            read_aud<Rules>(unit, sink);
            break;
        case PREFIX_SEI_NUT:
        case SUFFIX_SEI_NUT:
            read_sei<Rules>(unit, sink);
            break;
        default:
            if (is_slice(unit.header.nal_unit_type)) {
                read_slice<Rules>(unit, sink);
            }
            break;
    }
}

// Each record is parsed afresh and goes into its store only when all of it could be read: a broken
// repetition of a parameter set leaves the good one in force.

template <class Rules>
void unit_reader::read_vps(nal_unit& unit, stream_sink& sink) {
    auto& vps = record_.emplace<h265_nal_vps>();
    h2645_common_bitreader reader = rbsp_.reader();
    tracing<Rules> walk(reader, sink);
    if (video_parameter_set_rbsp(walk, vps)) {
        vps_store_[vps.vps_video_parameter_set_id] = vps;
    } else {
        lost_.add(VPS_NUT, vps.vps_video_parameter_set_id, unit.index);
        unit.faults.emplace_back("the VPS cannot be read");
    }
}

template <class Rules>
void unit_reader::read_sps(nal_unit& unit, stream_sink& sink) {
    auto& sps = record_.emplace<h265_nal_sps>();
    h2645_common_bitreader reader = rbsp_.reader();
    tracing<Rules> walk(reader, sink);
    const bool read = seq_parameter_set_rbsp(walk, sps, vps_store_);
    if (read && sps.sps_seq_parameter_set_id > highest_sps_id) {
        unit.faults.push_back(fmt::format("SPS {} has an identifier above {}",
                                          sps.sps_seq_parameter_set_id, highest_sps_id));
    } else if (read) {
        sps_store_[sps.sps_seq_parameter_set_id] = sps;
        if (sps_store_.active_id == sps_store_.no_id) {
            sps_store_.active_id = sps.sps_seq_parameter_set_id;
        }
    } else {
        lost_.add(SPS_NUT, sps.sps_seq_parameter_set_id, unit.index);
        unit.faults.push_back(lacks(vps_store_, sps.sps_video_parameter_set_id)
                                  ? lost_.missing(VPS_NUT, sps.sps_video_parameter_set_id, "SPS")
                                  : "the SPS cannot be read");
    }
}

template <class Rules>
void unit_reader::read_pps(nal_unit& unit, stream_sink& sink) {
    auto& pps = record_.emplace<h265_nal_pps>();
    h2645_common_bitreader reader = rbsp_.reader();
    tracing<Rules> walk(reader, sink);
    const bool read = pic_parameter_set_rbsp(walk, pps, sps_store_);
    if (read && pps.pps_pic_parameter_set_id > highest_pps_id) {
        unit.faults.push_back(fmt::format("PPS {} has an identifier above {}",
                                          pps.pps_pic_parameter_set_id, highest_pps_id));
    } else if (read) {
        pps_store_[pps.pps_pic_parameter_set_id] = pps;
    } else {
        lost_.add(PPS_NUT, pps.pps_pic_parameter_set_id, unit.index);
        unit.faults.push_back(lacks(sps_store_, pps.pps_seq_parameter_set_id)
                                  ? lost_.missing(SPS_NUT, pps.pps_seq_parameter_set_id, "PPS")
                                  : "the PPS cannot be read");
    }
}

template <class Rules>
void unit_reader::read_aud(nal_unit& unit, stream_sink& sink) {
    auto& aud = record_.emplace<h265_nal_aud>();
    h2645_common_bitreader reader = rbsp_.reader();
    tracing<Rules> walk(reader, sink);
    aud.valid = access_unit_delimiter_rbsp(walk, aud);
    if (!aud.valid) {
        unit.faults.emplace_back("the access unit delimiter cannot be read");
    }
}

template <class Rules>
void unit_reader::read_slice(nal_unit& unit, stream_sink& sink) {
    auto& slice = record_.emplace<h265_slice_segment_header>();
    h2645_common_bitreader reader = rbsp_.reader();
    tracing<Rules> walk(reader, sink);
    bool read = false;
    try {
        read = slice_segment_header(walk, slice, pps_store_, sps_store_, vps_store_,
                                    unit.header.nal_unit_type);
    } catch (const std::bad_alloc&) {
        unit.faults.emplace_back("the slice segment header needs more memory than is available");
        return;
    }
    if (read) {
        const h265_nal_pps& pps = pps_store_.at(slice.slice_pic_parameter_set_id);
        sps_store_.active_id = pps.pps_seq_parameter_set_id;
    } else if (lacks(pps_store_, slice.slice_pic_parameter_set_id)) {
        unit.faults.push_back(lost_.missing(PPS_NUT, slice.slice_pic_parameter_set_id, "slice"));
    } else {
        unit.faults.emplace_back("the slice segment header cannot be read");
    }
}

template <class Rules>
void unit_reader::read_sei(nal_unit& unit, stream_sink& sink) {
    rbsp_.strip_trailing_zero_bytes();
    h265_nal_sei_reader messages(rbsp_.begin(), rbsp_.end(), unit.header.nal_unit_type);
    while (messages.next_message()) {
        sink.begin_message(messages);
        read_message<Rules>(unit, messages, sink);
        sink.end_message();
    }
    constexpr unsigned int cut_off = 0xFFFFFFFF;
    const bool whole = messages.payload_type != cut_off && messages.payload_size != cut_off;
    if (!whole || messages.cursor != messages.end || messages.payload_end == messages.end) {
        unit.faults.emplace_back("the SEI messages are not followed by valid trailing bits");
        return;
    }
    h2645_common_bitreader reader = rbsp_.reader();
    reader.skip(bits_before(rbsp_.begin(), messages.payload_end));
    if (!tracing<Rules>(reader, sink).rbsp_trailing_bits()) {
        unit.faults.emplace_back("the SEI messages are not followed by valid trailing bits");
    }
}

template <class Rules>
void unit_reader::read_message(nal_unit& unit, const h265_nal_sei_reader& message,
                               stream_sink& sink) {
    h2645_common_bitreader reader(rbsp_.begin(), message.payload_begin);
    reader.skip(bits_before(rbsp_.begin(), message.message_begin));
    tell_byte_run("last_payload_type_byte", reader, sink);
    tell_byte_run("last_payload_size_byte", reader, sink);

    const std::string name = sei_name(message);
    if (message.truncated) {
        unit.faults.push_back(fmt::format("SEI message {} is truncated: {} of {} bytes are present",
                                          name, message.payload_end - message.payload_begin,
                                          message.payload_size));
    }
    if (!read_payload<Rules>(message, sink)) {
        unit.faults.push_back(fmt::format("SEI message {} cannot be read", name));
    }
}

template <class Rules>
bool unit_reader::read_payload(const h265_nal_sei_reader& message, stream_sink& sink) {
    h2645_common_bitreader reader(rbsp_.begin(), message.payload_end);
    reader.skip(bits_before(rbsp_.begin(), message.payload_begin));
    tracing<Rules> walk(reader, sink);
    const bool prefix = message.nal_unit_type == PREFIX_SEI_NUT;
    if (prefix && message.payload_type == h265_nal_sei_payload_type_prefix_buffering_period) {
        h265_nal_sei_buffering_period period;
        const bool read = buffering_period(walk, period, sps_store_);
        if (read) {
            sps_store_.active_id = period.bp_seq_parameter_set_id;
        }
        return read;
    }
    if (prefix && message.payload_type == h265_nal_sei_payload_type_prefix_pic_timing) {
        h265_nal_sei_pic_timing timing;
        const auto sps = sps_store_.find(sps_store_.active_id);
        return sps != sps_store_.end() && pic_timing(walk, timing, sps->second);
    }
    if (prefix && message.payload_type == h265_nal_sei_payload_type_prefix_active_parameter_sets) {
        h265_nal_sei_active_parameter_sets active;
        const bool read = active_parameter_sets(walk, active, vps_store_);
        if (read) {
            sps_store_.active_id = active.active_seq_parameter_set_id.front();
        }
        return read;
    }
    sink.opaque_payload(message);
    return true;
}

}  // namespace kovran::inspect
