#include "support/tracing_host.h"

#include <kovran/h265/h265_nal_aud.h>
#include <kovran/h265/h265_nal_sei_active_parameter_sets.h>
#include <kovran/h265/h265_nal_sei_buffering_period.h>
#include <kovran/h265/h265_nal_sei_pic_timing.h>
#include <kovran/h265/h265_nal_sei_reader.h>
#include <kovran/h265/h265_slice_segment_header.h>

#include "support/rbsp.h"

namespace kovran::test {
namespace {

template <class Record, class... Arguments>
traced_reading read_into(Record& record, h2645_common_bitreader reader, Arguments&... arguments) {
    traced_reading reading;
    reading.read = record.parse_standard(reader, arguments..., reading.trace, &reading.fault);
    return reading;
}

bool has_slice_segment_header(h265_nal_unit_type type) {
    return type <= RASL_R || (type >= BLA_W_LP && type <= CRA_NUT);
}

}  // namespace

std::size_t traced_reading::find(const std::string& name, std::size_t from) const {
    std::size_t i = from;
    for (; i < trace.elements.size(); ++i) {
        const std::string full = to_string(name_of(trace, trace.elements[i]));
        if (full == name || full.substr(0, full.find('[')) == name) {
            break;
        }
    }
    return i;
}

std::vector<traced_reading> tracing_host::read(h265_nal_unit_type type,
                                               const std::vector<unsigned char>& rbsp) {
    const exact_bytes bytes(rbsp);
    if (type == PREFIX_SEI_NUT || type == SUFFIX_SEI_NUT) {
        return read_messages(type, bytes.begin(), bytes.end());
    }
    const bool has_record = has_slice_segment_header(type) || (type >= VPS_NUT && type <= AUD_NUT);
    if (!has_record) {
        return {};
    }
    return {read_structure(type, {bytes.begin(), bytes.end()})};
}

traced_reading tracing_host::read_structure(h265_nal_unit_type type,
                                            h2645_common_bitreader reader) {
    traced_reading reading;
    switch (type) {
        case VPS_NUT: {
            h265_nal_vps vps;
            reading = read_into(vps, reader);
            if (reading.read) {
                vps_store[vps.vps_video_parameter_set_id] = vps;
            }
            break;
        }
        case SPS_NUT: {
            h265_nal_sps sps;
            reading = read_into(sps, reader, vps_store);
            if (reading.read) {
                sps_store[sps.sps_seq_parameter_set_id] = sps;
                if (sps_store.active_id == sps_store.no_id) {
                    sps_store.active_id = sps.sps_seq_parameter_set_id;
                }
            }
            break;
        }
        case PPS_NUT: {
            h265_nal_pps pps;
            reading = read_into(pps, reader, sps_store);
            if (reading.read) {
                pps_store[pps.pps_pic_parameter_set_id] = pps;
            }
            break;
        }
        case AUD_NUT: {
            h265_nal_aud aud;
            reading = read_into(aud, reader);
            break;
        }
        default: {
            h265_slice_segment_header slice;
            reading = read_into(slice, reader, pps_store, sps_store, vps_store, type);
            if (reading.read) {
                sps_store.active_id =
                    pps_store.at(slice.slice_pic_parameter_set_id).pps_seq_parameter_set_id;
            }
            break;
        }
    }
    return reading;
}

std::vector<traced_reading> tracing_host::read_messages(h265_nal_unit_type type,
                                                        unsigned char* begin, unsigned char* end) {
    std::vector<traced_reading> all;
    h265_nal_sei_reader messages(begin, end, type);
    while (type == PREFIX_SEI_NUT && messages.next_message()) {
        const h2645_common_bitreader reader(messages.payload_begin, messages.payload_end);
        traced_reading reading;
        if (messages.payload_type == h265_nal_sei_payload_type_prefix_buffering_period) {
            h265_nal_sei_buffering_period period;
            reading = read_into(period, reader, sps_store);
            if (reading.read) {
                sps_store.active_id = period.bp_seq_parameter_set_id;
            }
        } else if (messages.payload_type == h265_nal_sei_payload_type_prefix_pic_timing) {
            h265_nal_sei_pic_timing timing;
            reading = read_into(timing, reader, sps_store);
        } else if (messages.payload_type ==
                   h265_nal_sei_payload_type_prefix_active_parameter_sets) {
            h265_nal_sei_active_parameter_sets sets;
            reading = read_into(sets, reader, vps_store);
            if (reading.read) {
                sps_store.active_id = sets.active_seq_parameter_set_id.front();
            }
        } else {
            continue;
        }
        reading.first_bit = 8 * static_cast<std::size_t>(messages.payload_begin - begin);
        reading.payload_type = messages.payload_type;
        all.push_back(reading);
    }
    return all;
}

}  // namespace kovran::test
