#ifndef KOVRAN_BENCHMARKS_HOST_H
#define KOVRAN_BENCHMARKS_HOST_H

#include <kovran/kovran.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <variant>

#include "inputs.h"
#include "nal_units.h"

namespace kovran::benchmarks {

enum class rules { standard, own };

// Reads the headers of a stream as a host of the library does that keeps its records: whatever can
// be used again is. The records may be looked at after each read.
template <rules read_by>
struct host_by {
    // Longer than any slice header that ends where kovran stops reading.
    static constexpr std::size_t first_bytes_of_slice = 128;

    h2645_common_base_store<h265_nal_vps> vps_store;
    h2645_common_base_store<h265_nal_sps> sps_store;
    h2645_common_base_store<h265_nal_pps> pps_store;
    h265_nal_vps vps;
    h265_nal_sps sps;
    h265_nal_pps pps;
    h265_slice_segment_header slice;
    h265_nal_sei_buffering_period buffering_period;
    h265_nal_sei_pic_timing pic_timing;
    h265_nal_sei_active_parameter_sets active_parameter_sets;
    // By the standard's rules, in place of the three: one for each payload type, and one for those
    // that have no record.
    std::array<h265_nal_sei_message, 257> message_of_type;
    const h265_nal_sei_message* message = nullptr;  // the latest one

    template <class Record, class... Context>
    [[nodiscard]] static bool parse(Record& record, h2645_common_bitreader& bits,
                                    Context&&... context) {
        if constexpr (read_by == rules::standard) {
            return record.parse_standard(bits, context...);
        } else {
            return record.parse(bits, context...);
        }
    }

    // Each takes a unit that ends where its decode_fence says.

    [[nodiscard]] bool read_vps(const h265_nal_reader& unit) {
        if (read_by == rules::own) {
            vps.cprms_present_flag.assign(1, true);
        }
        h2645_common_bitreader bits = rbsp_of(unit, size_of(unit));
        return parse(vps, bits);
    }

    [[nodiscard]] bool read_sps(const h265_nal_reader& unit) {
        h2645_common_bitreader bits = rbsp_of(unit, size_of(unit));
        return parse(sps, bits, vps_store);
    }

    [[nodiscard]] bool read_pps(const h265_nal_reader& unit) {
        h2645_common_bitreader bits = rbsp_of(unit, size_of(unit));
        return parse(pps, bits, sps_store);
    }

    [[nodiscard]] bool read_slice(const h265_nal_reader& unit) {
        if (read_by == rules::own) {
            slice.dependent_slice_segment_flag = false;
            slice.slice_pic_order_cnt_lsb = 0;  // an IDR picture has none
        }
        h2645_common_bitreader bits = rbsp_of(unit, first_bytes_of_slice);
        return parse(slice, bits, pps_store, sps_store, vps_store, unit.nal.nal_unit_type);
    }

    // `see` is called with each message, after its record has been read where there is one.
    template <class See>
    [[nodiscard]] bool read_sei(const h265_nal_reader& unit, See&& see) {
        const h2645_common_bitreader bits = rbsp_of(unit, size_of(unit));
        h265_nal_sei_reader messages(rbsp_.data(), rbsp_.data() + (bits.end - bits.start),
                                     unit.nal.nal_unit_type);
        bool all_read = true;
        while (messages.next_message()) {
            all_read = read_message(messages) && all_read;
            see(messages);
        }
        return all_read;
    }

    // Of the latest message, which is pic_timing().
    [[nodiscard]] unsigned int pic_struct() const {
        const auto* const timing =
            message != nullptr ? std::get_if<h265_nal_sei_pic_timing>(&message->payload) : nullptr;
        return timing != nullptr ? timing->pic_struct : pic_timing.pic_struct;
    }

    // A unit of any type; parameter sets go into their stores.
    template <class See>
    [[nodiscard]] bool read(const h265_nal_reader& unit, See&& see) {
        switch (unit.nal.nal_unit_type) {
            case VPS_NUT:
                return read_vps(unit) && (vps_store[vps.vps_video_parameter_set_id] = vps).valid;
            case SPS_NUT:
                return read_sps(unit) && keep_sps();
            case PPS_NUT:
                return read_pps(unit) && (pps_store[pps.pps_pic_parameter_set_id] = pps).valid;
            case PREFIX_SEI_NUT:
            case SUFFIX_SEI_NUT:
                return read_sei(unit, see);
            default:
                return unit.nal.nal_unit_type > CRA_NUT || read_slice(unit);
        }
    }

private:
    [[nodiscard]] h2645_common_bitreader rbsp_of(h265_nal_reader unit, std::size_t longest) {
        const std::size_t size = std::min(size_of(unit), longest);
        if (rbsp_.size() < size) {
            rbsp_.resize(size);
        }
        return {rbsp_.data(), rbsp_.data() + unit.block_decode(rbsp_.data(), size)};
    }

    // The first one is active until a message says otherwise.
    [[nodiscard]] bool keep_sps() {
        if (sps_store.active_id == sps_store.no_id) {
            sps_store.active_id = sps.sps_seq_parameter_set_id;
        }
        return (sps_store[sps.sps_seq_parameter_set_id] = sps).valid;
    }

    [[nodiscard]] bool read_message(const h265_nal_sei_reader& messages) {
        return read_by == rules::standard ? read_any_message(messages)
                                          : read_known_message(messages);
    }

    [[nodiscard]] bool read_any_message(const h265_nal_sei_reader& messages) {
        const unsigned int type = std::min(messages.payload_type, 256U);
        message = &message_of_type[type];
        if (!message_of_type[type].parse_standard(messages, vps_store, sps_store)) {
            return false;
        }
        if (const auto* const period =
                std::get_if<h265_nal_sei_buffering_period>(&message->payload);
            period != nullptr) {
            sps_store.active_id = period->bp_seq_parameter_set_id;
        }
        return true;
    }

    [[nodiscard]] bool read_known_message(const h265_nal_sei_reader& messages) {
        if (messages.nal_unit_type != PREFIX_SEI_NUT) {
            return true;
        }
        h2645_common_bitreader bits(messages.payload_begin, messages.payload_end);
        switch (messages.payload_type) {
            case h265_nal_sei_payload_type_prefix_buffering_period:
                if (!parse(buffering_period, bits, sps_store)) {
                    return false;
                }
                sps_store.active_id = buffering_period.bp_seq_parameter_set_id;
                return true;
            case h265_nal_sei_payload_type_prefix_pic_timing:
                return parse(pic_timing, bits, sps_store);
            case h265_nal_sei_payload_type_prefix_active_parameter_sets:
                return parse(active_parameter_sets, bits, vps_store);
            default:
                return true;
        }
    }

    bytes rbsp_;
};

using host = host_by<rules::standard>;

// Sees SEI messages and does nothing.
inline void look_away(const h265_nal_sei_reader& /*message*/) {}

}  // namespace kovran::benchmarks

#endif  // KOVRAN_BENCHMARKS_HOST_H
