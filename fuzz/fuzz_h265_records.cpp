// Any stream can be parsed into records: `valid` shows what the headers promise, no store grows by
// a parse, memory and reads past the end have their bounds, parameter sets that were read half-way
// are no danger to what refers to them, every failure is told, and to tell changes nothing.
//
// Input: a byte for the allocation that fails, an Annex B stream. Each parameter set goes into its
// store whether its parse succeeded or not.
#include <kovran/kovran.h>

#include <cstddef>
#include <cstdint>
#include <new>
#include <vector>

#include "claim.h"
#include "extension_claims.h"
#include "slice_claims.h"
#include "support/allocation_failure.h"
#include "support/slice_record_fields.h"

namespace {

using kovran::fuzz::claim;
using kovran::fuzz::claim_whole_header;
using kovran::test::allocation_count;
using kovran::test::allocation_failure;

constexpr std::size_t largest_unbounded_array = 1048576;

// Read of slice segment headers in one input: a few of the longest arrays. Inputs full
// of them would only be slow.
constexpr std::size_t enough_bits = std::size_t{1} << 24;

// What a parse into a fresh record may ask for, and how far it may read behind the end of the data,
// where the bits are zeros: so much for any data, and so much for each of their bytes.
struct bounds {
    std::size_t bytes_for_any_data;
    std::size_t bytes_for_a_byte;
    std::size_t bits_for_any_data;
    std::size_t bits_for_a_byte;
};
// 128 HRD structures of a VPS, of eight sub-layers each, take the most of both.
constexpr bounds own_bounds = {std::size_t{512} << 10, 128, std::size_t{1} << 16, 0};
// HRD structures, of four bits at the least, take the most memory: twice, where a failed parse
// reads its record once more. Decoding units of picture timing, of one bit at the least, take the
// most bits: two elements of 32 each. Scaling lists take as many for any data.
constexpr bounds standard_bounds = {std::size_t{64} << 10, 4096, std::size_t{1} << 16, 512};

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
    kovran::h265_slice_segment_header independent_slice;
    kovran::h265_nal_sei_pic_timing timing;
    kovran::h265_nal_sei_buffering_period period;
    kovran::h265_nal_sei_active_parameter_sets active;

    bool by_standard = false;
    std::size_t failing_allocation = 0;  // 0: none
    std::size_t bits_of_slices = 0;

    [[nodiscard]] std::size_t entries() const { return vps.size() + sps.size() + pps.size(); }
};

struct data {
    const unsigned char* begin;
    const unsigned char* end;

    [[nodiscard]] kovran::h2645_common_bitreader reader() const { return {begin, end}; }
    [[nodiscard]] std::size_t size() const { return static_cast<std::size_t>(end - begin); }
};

template <class Record, class... Arguments>
bool parse_by_rules(const host& state, Record& record, kovran::h2645_common_bitreader& reader,
                    Arguments&&... arguments) {
    return state.by_standard ? record.parse_standard(reader, arguments...)
                             : record.parse(reader, arguments...);
}

// What `valid` shows after a failure.
enum class failed_record { is_not_valid, may_stay_valid };

template <class Record, class Parse>
void parse_fresh(const host& state, const data& from, Parse parse) {
    const bounds& bound = state.by_standard ? standard_bounds : own_bounds;
    const allocation_count before;
    {
        Record record;
        auto reader = from.reader();
        const bool read = parse(record, reader);
        claim(read == record.valid, "of a fresh record `valid` is the return value");
        claim(before.bytes() <= bound.bytes_for_any_data + bound.bytes_for_a_byte * from.size(),
              "a record takes memory by the size of its data");
        claim(reader.bit_position() <=
                  bound.bits_for_any_data + (8 + bound.bits_for_a_byte) * from.size(),
              "little is read behind the end");
    }
    claim(before.all_freed(), "a record frees what it took");
}

template <class Record, class Parse>
void parse_told(const data& from, Parse parse) {
    Record untold;
    Record told;
    kovran::h265_trace trace;
    kovran::h265_fault fault;
    auto untold_reader = from.reader();
    auto told_reader = from.reader();
    const bool read = parse(untold, untold_reader);
    claim(parse(told, told_reader, trace, &fault) == read &&
              told_reader.bit_position() == untold_reader.bit_position() &&
              kovran::test::difference(told, untold).empty(),
          "to tell of a parse changes nothing");
    claim(read || fault.kind != kovran::h265_fault_kind::none, "every failure is told");
    claim(trace.elements.size() <= 8 * from.size(), "no element is listed behind the end");
}

template <class Record, class Parse>
void parse_with_failing_allocation(const host& state, const data& from, Parse parse) {
    const allocation_count before;
    {
        Record record;
        auto reader = from.reader();
        bool read = false;
        bool failed = false;
        {
            const allocation_failure failure(state.failing_allocation);
            read = parse(record, reader);
            failed = failure.happened();
        }
        claim(!failed || (!read && !record.valid), "without memory a parse fails");
        auto again = from.reader();
        claim(parse(record, again) == record.valid, "a record without memory can be parsed again");
    }
    claim(before.all_freed(), "a record without memory frees what it took");
}

// By the standard's rules.
template <class Record, class Parse>
void claim_nothing_stale(const Record& used, const data& from, Parse parse) {
    Record fresh;
    auto reader = from.reader();
    static_cast<void>(parse(fresh, reader));
    claim(kovran::test::difference(used, fresh).empty(), "a used record is read as a fresh one");
}

// Into the record that is used again; true when it was read.
template <class Record, class Parse>
bool parse_all_ways(host& state, Record& record, const data& from, failed_record after_failure,
                    Parse parse) {
    const std::size_t entries = state.entries();
    parse_fresh<Record>(state, from, parse);
    parse_told<Record>(from, parse);
    if (state.failing_allocation != 0) {
        parse_with_failing_allocation<Record>(state, from, parse);
    }
    const bool may_be_valid =
        record.valid && !state.by_standard && after_failure == failed_record::may_stay_valid;
    auto reader = from.reader();
    const bool read = parse(record, reader);
    claim(read ? record.valid : !record.valid || may_be_valid, "`valid` is as promised");
    if (state.by_standard) {
        claim_nothing_stale(record, from, parse);
    }
    claim(entries == state.entries(), "no parse inserts into a store");
    return read;
}

// An RBSP that was read ends in trailing bits, which stand in the data; by the standard's rules a
// parameter set may lack them.
template <class Record, class Parse>
bool parse_to_trailing_bits(host& state, Record& record, const data& from,
                            failed_record after_failure, Parse parse) {
    return parse_all_ways(
        state, record, from, after_failure,
        [&](Record& target, kovran::h2645_common_bitreader& reader, auto&&... told) {
            const bool read = parse(target, reader, told...);
            const std::size_t end = 8 * (from.size() + (state.by_standard ? 1 : 0));
            claim(!read || (reader.bit_position() % 8 == 0 && reader.bit_position() <= end),
                  "an RBSP that was read ends in the data, with a byte");
            return read;
        });
}

void read_vps(host& state, const data& from) {
    kovran::h265_nal_vps& vps = state.vps_record;
    const bool read =
        parse_to_trailing_bits(state, vps, from, failed_record::may_stay_valid,
                               [&](auto& target, auto& reader, auto&&... told) {
                                   return parse_by_rules(state, target, reader, told...);
                               });
    if (read) {
        const std::size_t sub_layers = vps.vps_max_sub_layers_minus1 + std::size_t{1};
        claim(vps.profile_tier_level.sub_layers.size() == vps.vps_max_sub_layers_minus1 &&
                  vps.vps_max_dec_pic_buffering_minus1.size() == sub_layers &&
                  vps.vps_max_num_reorder_pics.size() == sub_layers &&
                  vps.vps_max_latency_increase_plus1.size() == sub_layers,
              "a VPS has an entry for each sub-layer");
        claim(vps.layer_id_included_flag.size() == vps.vps_num_layer_sets_minus1 + std::size_t{1},
              "a VPS has a row for each layer set");
        claim(!vps.vps_timing_info_present_flag || vps.vps_num_hrd_parameters == 0 ||
                  (vps.hrd_layer_set_idx.size() == vps.vps_num_hrd_parameters &&
                   vps.cprms_present_flag.size() == vps.vps_num_hrd_parameters &&
                   vps.hrd_parameters.size() == vps.vps_num_hrd_parameters),
              "a VPS has its HRD structures");
    }
    state.vps[vps.vps_video_parameter_set_id] = vps;
}

void read_sps(host& state, const data& from) {
    kovran::h265_nal_sps& sps = state.sps_record;
    const bool read =
        parse_to_trailing_bits(state, sps, from, failed_record::is_not_valid,
                               [&](auto& target, auto& reader, auto&&... told) {
                                   return parse_by_rules(state, target, reader, state.vps, told...);
                               });
    if (read) {
        const std::size_t sub_layers = sps.sps_max_sub_layers_minus1 + std::size_t{1};
        claim(sps.profile_tier_level.sub_layers.size() == sps.sps_max_sub_layers_minus1 &&
                  sps.sps_max_dec_pic_buffering_minus1.size() == sub_layers &&
                  sps.sps_max_num_reorder_pics.size() == sub_layers &&
                  sps.sps_max_latency_increase_plus1.size() == sub_layers,
              "an SPS has an entry for each sub-layer");
        claim(sps.st_ref_pic_set.size() == sps.num_short_term_ref_pic_sets,
              "an SPS has its short-term sets");
        claim(!sps.long_term_ref_pics_present_flag ||
                  (sps.lt_ref_pic_poc_lsb_sps.size() == sps.num_long_term_ref_pics_sps &&
                   sps.used_by_curr_pic_lt_sps_flag.size() == sps.num_long_term_ref_pics_sps),
              "an SPS has its long-term pictures");
        if (state.by_standard) {
            kovran::fuzz::claim_extensions(sps);
        }
    }
    state.sps[sps.sps_seq_parameter_set_id % 4] = sps;
}

void read_pps(host& state, const data& from) {
    kovran::h265_nal_pps& pps = state.pps_record;
    const bool read =
        parse_to_trailing_bits(state, pps, from, failed_record::is_not_valid,
                               [&](auto& target, auto& reader, auto&&... told) {
                                   return parse_by_rules(state, target, reader, state.sps, told...);
                               });
    if (read && pps.tiles_enabled_flag && !pps.uniform_spacing_flag) {
        claim(pps.column_width_minus1.size() == pps.num_tile_columns_minus1 &&
                  pps.row_height_minus1.size() == pps.num_tile_rows_minus1,
              "a PPS has the widths and heights of its tiles");
    }
    if (read && state.by_standard) {
        kovran::fuzz::claim_extensions(pps);
    }
    state.pps[pps.pps_pic_parameter_set_id % 4] = pps;
}

// Asks for so many entries in one of its arrays that they are refused.
bool asks_for_too_much(const kovran::h265_slice_segment_header& slice) {
    return slice.num_long_term_sps + slice.num_long_term_pics > largest_unbounded_array ||
           slice.num_ref_idx_l0_active_minus1 >= largest_unbounded_array ||
           slice.num_ref_idx_l1_active_minus1 >= largest_unbounded_array;
}

void check_arrays(const kovran::h265_slice_segment_header& slice) {
    const std::size_t entries = slice.lt_idx_sps.size();
    claim(entries <= largest_unbounded_array && slice.poc_lsb_lt.size() == entries &&
              slice.used_by_curr_pic_lt_flag.size() == entries &&
              slice.delta_poc_msb_present_flag.size() == entries &&
              slice.delta_poc_msb_cycle_lt.size() == entries,
          "long-term arrays have one length, and a bound");
    claim(slice.ref_pic_lists_modification.list_entry_l0.size() <= largest_unbounded_array &&
              slice.ref_pic_lists_modification.list_entry_l1.size() <= largest_unbounded_array,
          "lists have a bound");
}

void parse_slice(host& state, kovran::h265_slice_segment_header& slice, const data& from,
                 kovran::h265_nal_unit_type type) {
    auto reader = from.reader();
    try {
        const bool read =
            parse_by_rules(state, slice, reader, state.pps, state.sps, state.vps, type);
        claim(read == slice.valid, "a slice segment header tells of the latest parse");
        if (read && state.by_standard) {
            claim_whole_header(slice, state.pps.at(slice.slice_pic_parameter_set_id),
                               reader.bit_position(), from.size());
        }
    } catch (const std::bad_alloc&) {
        claim(!slice.valid, "a slice segment header without memory is not valid");
        claim(!state.by_standard && asks_for_too_much(slice), "only long arrays are refused");
    }
    check_arrays(slice);
    state.bits_of_slices += reader.bit_position();
}

void parse_slice_with_failing_allocation(host& state, const data& from,
                                         kovran::h265_nal_unit_type type) {
    const allocation_count before;
    {
        kovran::h265_slice_segment_header slice;
        auto reader = from.reader();
        bool read = false;
        bool failed = false;
        {
            const allocation_failure failure(state.failing_allocation);
            try {
                read = parse_by_rules(state, slice, reader, state.pps, state.sps, state.vps, type);
            } catch (const std::bad_alloc&) {
                // As promised.
            }
            failed = failure.happened();
        }
        claim(!failed || (!read && !slice.valid), "without memory a slice is not valid");
        parse_slice(state, slice, from, type);
    }
    claim(before.all_freed(), "a slice without memory frees what it took");
}

void read_slice(host& state, const data& from, kovran::h265_nal_unit_type type) {
    const std::size_t entries = state.entries();
    kovran::h265_slice_segment_header fresh;
    parse_slice(state, fresh, from, type);
    parse_slice(state, state.slice, from, type);
    if (state.by_standard) {
        claim(kovran::test::difference(state.slice, fresh).empty(),
              "a used slice segment header is read as a fresh one");
        parse_told<kovran::h265_slice_segment_header>(from, [&](auto& target, auto& reader,
                                                                auto&&... told) {
            return target.parse_standard(reader, state.pps, state.sps, state.vps, type, told...);
        });
        if (fresh.dependent_slice_segment_flag) {
            kovran::fuzz::claim_taken_over(fresh, state.independent_slice);
        } else if (fresh.valid) {
            state.independent_slice = fresh;
        }
    }
    if (state.failing_allocation != 0) {
        parse_slice_with_failing_allocation(state, from, type);
    }
    claim(entries == state.entries(), "no slice inserts into a store");
    const auto pps = state.pps.find(fresh.slice_pic_parameter_set_id);
    if (pps != state.pps.end()) {
        state.sps.active_id = pps->second.pps_seq_parameter_set_id;
    }
}

void read_message(host& state, const kovran::h265_nal_sei_reader& message) {
    const data payload{message.payload_begin, message.payload_end};
    const auto parse_with_sps = [&](auto& target, auto& reader, auto&&... told) {
        return parse_by_rules(state, target, reader, state.sps, told...);
    };
    switch (message.payload_type) {
        case kovran::h265_nal_sei_payload_type_prefix_buffering_period:
            if (parse_all_ways(state, state.period, payload, failed_record::may_stay_valid,
                               parse_with_sps)) {
                state.sps.active_id = state.period.bp_seq_parameter_set_id;
            }
            break;
        case kovran::h265_nal_sei_payload_type_prefix_pic_timing:
            parse_all_ways(state, state.timing, payload, failed_record::may_stay_valid,
                           parse_with_sps);
            break;
        case kovran::h265_nal_sei_payload_type_prefix_active_parameter_sets:
            if (parse_all_ways(state, state.active, payload, failed_record::is_not_valid,
                               [&](auto& target, auto& reader, auto&&... told) {
                                   return parse_by_rules(state, target, reader, state.vps, told...);
                               })) {
                state.sps.active_id = state.active.active_seq_parameter_set_id.front();
            }
            break;
        default:
            break;
    }
}

void read_unit(host& state, std::vector<unsigned char>& rbsp, kovran::h265_nal_unit_type type) {
    const data from{rbsp.data(), rbsp.data() + rbsp.size()};
    switch (type) {
        case kovran::VPS_NUT:
            read_vps(state, from);
            break;
        case kovran::SPS_NUT:
            read_sps(state, from);
            break;
        case kovran::PPS_NUT:
            read_pps(state, from);
            break;
        case kovran::AUD_NUT:
            parse_to_trailing_bits(state, state.aud, from, failed_record::is_not_valid,
                                   [&](auto& target, auto& reader, auto&&... told) {
                                       return parse_by_rules(state, target, reader, told...);
                                   });
            break;
        case kovran::PREFIX_SEI_NUT:
        case kovran::SUFFIX_SEI_NUT: {
            kovran::h265_nal_sei_reader messages(rbsp.data(), rbsp.data() + rbsp.size(), type);
            while (messages.next_message()) {
                read_message(state, messages);
            }
            break;
        }
        default:
            read_slice(state, from, type);
            break;
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* input, std::size_t size) {
    if (size == 0) {
        return 0;
    }
    host state;
    state.failing_allocation = input[0] % 64;
    state.by_standard = (input[0] & 0x80) != 0;
    const bool changes_rules = (input[0] & 0x40) != 0;
    std::vector<unsigned char> stream(input + 1, input + size);
    unsigned char* const end = stream.data() + stream.size();
    kovran::h265_nal_reader next(kovran::nalfmt_annex_b);
    next.scan(stream.data(), end);
    while (next.found && state.bits_of_slices < enough_bits) {
        kovran::h265_nal_reader unit = next;
        next.scan(next.cursor, end);
        std::vector<unsigned char> rbsp(
            static_cast<std::size_t>((next.found ? next.frame_begin : end) - unit.payload_begin));
        rbsp.resize(unit.block_decode(rbsp.data(), rbsp.size()));
        rbsp.shrink_to_fit();  // so that a read beyond it is seen
        read_unit(state, rbsp, unit.nal.nal_unit_type);
        state.by_standard = state.by_standard != changes_rules;
    }
    return 0;
}
