// Any stream can be parsed into records: those that the headers promise `valid` for show it, no
// store grows by a parse, and parameter sets that were read half-way are no danger to what refers
// to them.
//
// Input: an Annex B stream. Each parameter set goes into its store whether its parse succeeded or
// not.
#include <kovran/kovran.h>

#include <cstddef>
#include <cstdint>
#include <new>
#include <vector>

#include "claim.h"

namespace {

using kovran::fuzz::claim;

struct host {
    kovran::h2645_common_base_store<kovran::h265_nal_vps> vps;
    kovran::h2645_common_base_store<kovran::h265_nal_sps> sps;
    kovran::h2645_common_base_store<kovran::h265_nal_pps> pps;

    // Used again for every unit, so that stale fields are met.
    kovran::h265_nal_vps vps_record;
    kovran::h265_nal_sps sps_record;
    kovran::h265_nal_pps pps_record;
    kovran::h265_nal_aud aud;
    kovran::h265_slice_segment_header slice;
    kovran::h265_nal_sei_pic_timing timing;
    kovran::h265_nal_sei_buffering_period period;
    kovran::h265_nal_sei_active_parameter_sets active;

    [[nodiscard]] std::size_t entries() const { return vps.size() + sps.size() + pps.size(); }
};

void read_message(host& state, const kovran::h265_nal_sei_reader& message) {
    kovran::h2645_common_bitreader bits(message.payload_begin, message.payload_end);
    switch (message.payload_type) {
        case kovran::h265_nal_sei_payload_type_prefix_buffering_period:
            if (state.period.parse(bits, state.sps)) {
                claim(state.period.valid, "a buffering period that was read is valid");
                state.sps.active_id = state.period.bp_seq_parameter_set_id;
            }
            break;
        case kovran::h265_nal_sei_payload_type_prefix_pic_timing:
            if (state.timing.parse(bits, state.sps)) {
                claim(state.timing.valid, "picture timing that was read is valid");
            }
            break;
        case kovran::h265_nal_sei_payload_type_prefix_active_parameter_sets: {
            const bool read = state.active.parse(bits, state.vps);
            claim(read == state.active.valid, "active parameter sets tell of the latest parse");
            break;
        }
        default:
            break;
    }
}

void read_messages(host& state, std::vector<unsigned char>& rbsp, kovran::h265_nal_unit_type type) {
    kovran::h265_nal_sei_reader messages(rbsp.data(), rbsp.data() + rbsp.size(), type);
    while (messages.next_message()) {
        claim(messages.message_begin < messages.payload_begin &&
                  messages.payload_begin <= messages.payload_end &&
                  messages.payload_end <= messages.end,
              "a message lies in the unit");
        read_message(state, messages);
    }
}

void read_slice(host& state, kovran::h2645_common_bitreader& bits,
                kovran::h265_nal_unit_type type) {
    try {
        const bool read = state.slice.parse(bits, state.pps, state.sps, state.vps, type);
        claim(read == state.slice.valid, "a slice segment header tells of the latest parse");
    } catch (const std::bad_alloc&) {
        claim(!state.slice.valid, "a slice segment header without memory is not valid");
    }
    claim(state.slice.lt_idx_sps.size() <= 1048576, "long-term arrays have a bound");
}

void read_unit(host& state, const kovran::h265_nal& nal, std::vector<unsigned char>& rbsp) {
    kovran::h2645_common_bitreader bits(rbsp.data(), rbsp.data() + rbsp.size());
    const std::size_t entries = state.entries();
    switch (nal.nal_unit_type) {
        case kovran::VPS_NUT:
            if (state.vps_record.parse(bits)) {
                claim(state.vps_record.valid, "a VPS that was read is valid");
            }
            state.vps[state.vps_record.vps_video_parameter_set_id] = state.vps_record;
            return;
        case kovran::SPS_NUT: {
            const bool read = state.sps_record.parse(bits, state.vps);
            claim(read == state.sps_record.valid, "an SPS tells of the latest parse");
            claim(entries == state.entries(), "an SPS inserts nothing");
            state.sps[state.sps_record.sps_seq_parameter_set_id % 4] = state.sps_record;
            return;
        }
        case kovran::PPS_NUT: {
            const bool read = state.pps_record.parse(bits, state.sps);
            claim(read == state.pps_record.valid, "a PPS tells of the latest parse");
            claim(entries == state.entries(), "a PPS inserts nothing");
            state.pps[state.pps_record.pps_pic_parameter_set_id % 4] = state.pps_record;
            return;
        }
        case kovran::AUD_NUT:
            claim(state.aud.parse(bits) == state.aud.valid,
                  "a delimiter tells of the latest parse");
            break;
        case kovran::PREFIX_SEI_NUT:
        case kovran::SUFFIX_SEI_NUT:
            read_messages(state, rbsp, nal.nal_unit_type);
            break;
        default:
            read_slice(state, bits, nal.nal_unit_type);
            break;
    }
    claim(entries == state.entries(), "no parse inserts into a store");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::vector<unsigned char> stream(data, data + size);
    unsigned char* const end = stream.data() + size;
    host state;
    kovran::h265_nal_reader next(kovran::nalfmt_annex_b);
    next.scan(stream.data(), end);
    while (next.found) {
        kovran::h265_nal_reader unit = next;
        next.scan(next.cursor, end);
        std::vector<unsigned char> rbsp(
            static_cast<std::size_t>((next.found ? next.frame_begin : end) - unit.payload_begin));
        rbsp.resize(unit.block_decode(rbsp.data(), rbsp.size()));
        rbsp.shrink_to_fit();  // so that a read beyond it is seen
        read_unit(state, unit.nal, rbsp);
    }
    return 0;
}
