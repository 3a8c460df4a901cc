// Any bytes walked as the messages of an SEI unit: the walk goes as clause 7.3.5 has it, byte by
// byte, and what the library's own rules read of a message they read to the bit, by whatever HRD
// parameters. By the standard's rules every message is read, all its bits are told of, every
// failure is, and nothing of a used record shows.
//
// Input: the first byte of the NAL unit header, six bytes for the parameter sets, the RBSP.
#include <kovran/kovran.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <vector>

#include "bit_count.h"
#include "claim.h"
#include "message_claims.h"
#include "support/slice_record_fields.h"

namespace {

using kovran::fuzz::bit_count;
using kovran::fuzz::claim;
using kovran::fuzz::claim_message;

constexpr unsigned int known_id = 0;
constexpr std::size_t parameter_bytes = 7;

struct host {
    kovran::h2645_common_base_store<kovran::h265_nal_vps> vps;
    kovran::h2645_common_base_store<kovran::h265_nal_sps> sps;

    // Used again for every message, so that stale fields are met.
    kovran::h265_nal_sei_pic_timing timing;
    kovran::h265_nal_sei_buffering_period period;
    kovran::h265_nal_sei_active_parameter_sets active;

    // By the standard's rules.
    kovran::h265_nal_sei_pic_timing standard_timing;
    kovran::h265_nal_sei_buffering_period standard_period;
    kovran::h265_nal_sei_active_parameter_sets standard_active;
    kovran::h265_nal_sei_message standard_message;
};

bool bit(unsigned int byte, unsigned int number) {
    return (byte >> number & 1U) != 0;
}

// What a host may have: parameter sets of any lengths and counts, and HRD parameters that no VUI
// ever filled.
host host_of(const std::uint8_t* bytes) {
    host state;
    const unsigned int flags = bytes[0];
    kovran::h265_nal_sps& sps = state.sps[known_id];
    sps.vui_parameters.frame_field_info_present_flag = bit(flags, 0);
    kovran::h265_hrd_parameters& hrd = sps.vui_parameters.hrd_parameters;
    sps.pic_width_in_luma_samples = 16U * bytes[4];  // coding tree blocks of 8x8
    sps.pic_height_in_luma_samples = 1080;
    hrd.nal_hrd_parameters_present_flag = bit(flags, 1);
    hrd.vcl_hrd_parameters_present_flag = bit(flags, 2);
    hrd.sub_pic_hrd_params_present_flag = bit(flags, 3);
    hrd.sub_pic_cpb_params_in_pic_timing_sei_flag = bit(flags, 4);
    hrd.initial_cpb_removal_delay_length_minus1 = bytes[1] % 32;
    hrd.au_cpb_removal_delay_length_minus1 = bytes[2] % 32;
    hrd.dpb_output_delay_length_minus1 = bytes[3] % 32;
    hrd.dpb_output_delay_du_length_minus1 = bytes[5] % 32;
    hrd.du_cpb_removal_delay_increment_length_minus1 = bytes[5] / 8;
    if (bit(flags, 5)) {
        hrd.cpb_cnt_minus1.assign(1, bytes[4]);
    }
    sps.chroma_format_idc = bytes[1] / 64;
    sps.log2_diff_max_min_luma_coding_block_size = bytes[1] / 32 % 2;
    state.sps.active_id = bit(flags, 6) ? known_id : known_id + 1;
    kovran::h265_nal_vps& vps = state.vps[known_id];
    vps.vps_base_layer_internal_flag = bit(flags, 7);
    vps.vps_max_layers_minus1 = bytes[5] / 4;
    return state;
}

bit_count bits_of(const kovran::h265_nal_sei_buffering_period& period,
                  const kovran::h265_hrd_parameters& hrd) {
    const std::size_t delay = hrd.au_cpb_removal_delay_length_minus1 + std::size_t{1};
    const std::size_t initial = hrd.initial_cpb_removal_delay_length_minus1 + std::size_t{1};
    bit_count bits;
    bits.ue(period.bp_seq_parameter_set_id);
    bits.u(hrd.sub_pic_hrd_params_present_flag ? 0 : 1);
    if (period.irap_cpb_params_present_flag) {
        bits.u(delay + hrd.dpb_output_delay_length_minus1 + 1);
    }
    bits.u(1 + delay);
    const bool alternative =
        hrd.sub_pic_hrd_params_present_flag || period.irap_cpb_params_present_flag;
    for (const bool present : {period.NalHrdBpPresentFlag, period.VclHrdBpPresentFlag}) {
        bits.u(present ? initial * period.CpbCnt * (alternative ? 4 : 2) : 0);
    }
    bits.u(period.use_alt_cpb_params_flag_present ? 1 : 0);
    return bits;
}

bit_count bits_of(const kovran::h265_nal_sei_pic_timing& timing, const kovran::h265_nal_sps& sps) {
    const kovran::h265_hrd_parameters& hrd = sps.vui_parameters.hrd_parameters;
    const std::size_t increment = hrd.du_cpb_removal_delay_increment_length_minus1 + std::size_t{1};
    bit_count bits;
    bits.u(sps.vui_parameters.frame_field_info_present_flag ? 7 : 0);
    if (!timing.cpb_dpb_delays_present) {
        return bits;
    }
    bits.u(hrd.au_cpb_removal_delay_length_minus1 + std::size_t{1});
    bits.u(hrd.dpb_output_delay_length_minus1 + std::size_t{1});
    if (hrd.sub_pic_hrd_params_present_flag) {
        bits.u(hrd.dpb_output_delay_du_length_minus1 + std::size_t{1});
    } else if (!hrd.sub_pic_cpb_params_in_pic_timing_sei_flag) {
        return bits;
    }
    bits.ue(timing.num_decoding_units_minus1);
    bits.u(1);
    bits.u(increment *
           (timing.du_common_cpb_removal_delay_flag ? 1 : timing.num_decoding_units_minus1));
    bits.ue(timing.num_nalus_in_du_minus1);
    return bits;
}

bit_count bits_of(const kovran::h265_nal_sei_active_parameter_sets& active,
                  const kovran::h265_nal_vps& vps) {
    bit_count bits;
    bits.u(6);
    bits.ue(active.num_sps_ids_minus1);
    bits.ue(active.active_seq_parameter_set_id);
    for (std::size_t i = vps.vps_base_layer_internal_flag ? 1 : 0; i < active.layer_sps_idx.size();
         ++i) {
        bits.ue(active.layer_sps_idx[i]);
    }
    return bits;
}

// Into a fresh record, and into one that is used again.
template <class Record, class Store>
void read_by_standard(Record& used, const kovran::h265_nal_sei_reader& message, Store& store) {
    kovran::h2645_common_bitreader bits(message.payload_begin, message.payload_end);
    kovran::h2645_common_bitreader told_bits = bits;
    kovran::h2645_common_bitreader used_bits = bits;
    const auto bits_of_data =
        8 * static_cast<std::size_t>(message.payload_end - message.payload_begin);
    Record record;
    const bool read = record.parse_standard(bits, store);
    claim(read == record.valid, "by the standard's rules `valid` is the return value");
    claim(!read || bits.bit_position() <= bits_of_data, "a message that was read ends in the data");

    Record told;
    kovran::h265_trace trace;
    kovran::h265_fault fault;
    claim(told.parse_standard(told_bits, store, trace, &fault) == read &&
              told_bits.bit_position() == bits.bit_position() &&
              kovran::test::difference(told, record).empty(),
          "to tell of a parse changes nothing");
    claim(read == (fault.kind == kovran::h265_fault_kind::none), "every failure is told");
    claim(trace.elements.size() <= bits_of_data, "no element is listed behind the end");

    claim(used.parse_standard(used_bits, store) == read &&
              kovran::test::difference(used, record).empty(),
          "a used record is read as a fresh one");
}

void read_period(host& state, kovran::h2645_common_bitreader bits) {
    const bool was_valid = state.period.valid;
    kovran::h2645_common_bitreader again = bits;
    const bool read = state.period.parse(bits, state.sps);
    claim(read ? state.period.valid : !state.period.valid || was_valid,
          "a buffering period becomes valid only when it is read");

    kovran::h265_nal_sei_buffering_period fresh;
    const bool fresh_read = fresh.parse(again, state.sps);
    const auto sps = state.sps.find(fresh.bp_seq_parameter_set_id);
    claim(fresh_read == fresh.valid, "of a fresh buffering period `valid` is the return value");
    if (sps == state.sps.end()) {
        claim(!read && !fresh_read && !state.period.valid, "a buffering period needs its SPS");
        return;
    }
    const kovran::h265_hrd_parameters& hrd = sps->second.vui_parameters.hrd_parameters;
    const bool has_count = !hrd.cpb_cnt_minus1.empty() && hrd.cpb_cnt_minus1.front() < 128;
    claim(read == has_count && fresh_read == has_count,
          "a buffering period fails only for want of CPBs, or for too many");
    if (!read) {
        return;
    }
    claim(bits_of(state.period, hrd).is(bits.bit_position()) &&
              bits_of(fresh, hrd).is(again.bit_position()),
          "a buffering period is read to the bit");
    claim(!fresh.NalHrdBpPresentFlag ||
              (fresh.nal_initial_cpb_removal_delay.size() == fresh.CpbCnt &&
               fresh.nal_initial_cpb_removal_offset.size() == fresh.CpbCnt &&
               fresh.nal_initial_alt_cpb_removal_delay.size() == fresh.CpbCnt &&
               fresh.nal_initial_alt_cpb_removal_offset.size() == fresh.CpbCnt),
          "a buffering period has arrays of CpbCnt for the NAL HRD");
    claim(!fresh.VclHrdBpPresentFlag ||
              (fresh.vcl_initial_cpb_removal_delay.size() == fresh.CpbCnt &&
               fresh.vcl_initial_cpb_removal_offset.size() == fresh.CpbCnt &&
               fresh.vcl_initial_alt_cpb_removal_delay.size() == fresh.CpbCnt &&
               fresh.vcl_initial_alt_cpb_removal_offset.size() == fresh.CpbCnt),
          "a buffering period has arrays of CpbCnt for the VCL HRD");
}

void read_timing(host& state, kovran::h2645_common_bitreader bits) {
    kovran::h265_nal_sei_pic_timing& timing = state.timing;
    const bool was_valid = timing.valid;
    const auto sps = state.sps.find(state.sps.active_id);
    const bool read = timing.parse(bits, state.sps);
    if (sps == state.sps.end()) {
        claim(!read && !timing.valid, "picture timing needs the active SPS");
        return;
    }
    const kovran::h265_hrd_parameters& hrd = sps->second.vui_parameters.hrd_parameters;
    const bool has_units =
        timing.cpb_dpb_delays_present &&
        (hrd.sub_pic_hrd_params_present_flag || hrd.sub_pic_cpb_params_in_pic_timing_sei_flag);
    claim(read == !(has_units && timing.num_decoding_units_minus1 > 127),
          "picture timing fails only for too many decoding units");
    claim(timing.valid == (read || was_valid), "picture timing is valid once it was read");
    if (!read) {
        return;
    }
    claim(bits_of(timing, sps->second).is(bits.bit_position()),
          "picture timing is read to the bit");
    claim(!has_units ||
              (timing.num_nalus_in_du_minus1.size() == timing.num_decoding_units_minus1 + 1 &&
               timing.du_cpb_removal_delay_increment_minus1.size() ==
                   timing.num_decoding_units_minus1 + 1),
          "picture timing has an entry for each decoding unit");
}

void read_active(host& state, kovran::h2645_common_bitreader bits) {
    kovran::h265_nal_sei_active_parameter_sets& active = state.active;
    const bool read = active.parse(bits, state.vps);
    claim(read == active.valid, "active parameter sets tell of the latest parse");
    const auto vps = state.vps.find(active.active_video_parameter_set_id);
    if (vps == state.vps.end()) {
        claim(!read && bits.bit_position() == 4, "active parameter sets need their VPS");
        return;
    }
    claim(read == (active.num_sps_ids_minus1 <= 127),
          "active parameter sets fail only for too many identifiers");
    if (read) {
        claim(active.active_seq_parameter_set_id.size() == active.num_sps_ids_minus1 + 1 &&
                  active.layer_sps_idx.size() == vps->second.vps_max_layers_minus1 + 1U,
              "active parameter sets have an entry for each identifier and layer");
        claim(bits_of(active, vps->second).is(bits.bit_position()),
              "active parameter sets are read to the bit");
    }
}

void read_payload(host& state, const kovran::h265_nal_sei_reader& message) {
    const kovran::h2645_common_bitreader bits(message.payload_begin, message.payload_end);
    const std::size_t entries = state.sps.size() + state.vps.size();
    switch (message.payload_type) {
        case kovran::h265_nal_sei_payload_type_prefix_buffering_period:
            read_period(state, bits);
            read_by_standard(state.standard_period, message, state.sps);
            break;
        case kovran::h265_nal_sei_payload_type_prefix_pic_timing:
            read_timing(state, bits);
            read_by_standard(state.standard_timing, message, state.sps);
            break;
        case kovran::h265_nal_sei_payload_type_prefix_active_parameter_sets:
            read_active(state, bits);
            read_by_standard(state.standard_active, message, state.vps);
            break;
        default:
            break;
    }
    claim(entries == state.sps.size() + state.vps.size(), "no parse inserts into a store");
}

void check_name(const kovran::h265_nal_sei_reader& message) {
    const auto type = message.payload_type;
    const char* const name = kovran::h265_nal_sei_payload_type_to_str(
        static_cast<kovran::h265_nal_sei_payload_type>(type), message.nal_unit_type);
    const char* expected = "";
    if (message.nal_unit_type == kovran::PREFIX_SEI_NUT) {
        expected = kovran::h265_nal_sei_payload_type_prefix_to_str(
            static_cast<kovran::h265_nal_sei_payload_type_prefix>(type));
    } else if (message.nal_unit_type == kovran::SUFFIX_SEI_NUT) {
        expected = kovran::h265_nal_sei_payload_type_suffix_to_str(
            static_cast<kovran::h265_nal_sei_payload_type_suffix>(type));
    }
    claim(name != nullptr && std::strcmp(name, expected) == 0, "a type has the name of its table");
}

// payloadType or payloadSize, clause 7.3.5; 0xFFFFFFFF when the end cuts it off.
unsigned int byte_run(const unsigned char*& p, const unsigned char* end) {
    std::uint64_t value = 0;
    for (; p != end; ++p) {
        value += *p;
        if (*p != 0xFF) {
            ++p;
            return static_cast<unsigned int>(std::min<std::uint64_t>(value, 0xFFFFFFFE));
        }
    }
    return std::numeric_limits<unsigned int>::max();
}

void walk(host& state, std::vector<unsigned char>& rbsp, kovran::h265_nal_unit_type type) {
    unsigned char* const begin = rbsp.data();
    const unsigned char* const end = begin + rbsp.size();
    kovran::h265_nal_sei_reader messages(begin, begin + rbsp.size(), type);
    const unsigned char* p = begin;
    while (messages.next_message()) {
        claim(messages.message_valid && end - p >= 2 && messages.message_begin == p,
              "a message begins where the one before ended");
        claim(messages.payload_type == byte_run(p, end), "payloadType is a run of bytes");
        const unsigned int size = byte_run(p, end);
        const auto left = static_cast<std::size_t>(end - p);
        claim(messages.payload_size == size, "payloadSize is a run of bytes");
        claim(messages.truncated == (size > left), "a message is truncated when it is too long");
        claim(messages.payload_begin == p, "the payload follows its size");
        p += std::min<std::size_t>(size, left);
        claim(messages.payload_end == p, "the payload has its size, as far as there is any");
        p += end - p == 1 && *p == 0x80 ? 1 : 0;
        claim(messages.cursor == p, "the cursor stands behind the payload or the trailing bits");
        check_name(messages);
        read_payload(state, messages);
        claim_message(messages, state.standard_message, state.vps, state.sps);
    }
    claim(!messages.message_valid, "a walk that ended has no message");
    claim(end - p < 2 || messages.cursor == end, "a walk ends at the end");
    if (end - p >= 2) {
        const unsigned int last_type = byte_run(p, end);
        claim(last_type == messages.payload_type, "the type of a message that is cut off stays");
        claim(byte_run(p, end) == std::numeric_limits<unsigned int>::max(),
              "only a message without its size ends the walk");
    }
    claim(!messages.next_message(), "a walk that ended does not go on");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < parameter_bytes) {
        return 0;
    }
    const auto type = static_cast<kovran::h265_nal_unit_type>(data[0] >> 1 & 0x3F);
    host state = host_of(data + 1);
    std::vector<unsigned char> rbsp(data + parameter_bytes, data + size);
    walk(state, rbsp, type);
    return 0;
}
