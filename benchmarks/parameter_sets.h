#ifndef KOVRAN_BENCHMARKS_PARAMETER_SETS_H
#define KOVRAN_BENCHMARKS_PARAMETER_SETS_H

#include <kovran/h2645_common/h2645_common_base_store.h>
#include <kovran/h265/h265_nal_pps.h>
#include <kovran/h265/h265_nal_reader.h>
#include <kovran/h265/h265_nal_sps.h>
#include <kovran/h265/h265_nal_vps.h>

#include "h2645_common/inlined_bitreader.h"

#include "hand_written.h"
#include "inputs.h"

#include <cstdlib>
#include <fstream>
#include <iterator>

namespace kovran::benchmarks {

// The first VPS, SPS and PPS of a sample, and records that they are parsed into again and again: by
// their descriptions, and by the parsers written by hand, in one program over the same bytes.
class parameter_sets {
public:
    parameter_sets() {
        std::ifstream file(KOVRAN_SAMPLES "/sei_everything.hevc", std::ios::binary);
        bytes stream(std::istreambuf_iterator<char>(file), {});
        unsigned char* const end = stream.data() + stream.size();
        h265_nal_reader reader(nalfmt_annex_b);
        for (reader.scan(stream.data(), end); reader.found; reader.scan(reader.cursor, end)) {
            bytes* const rbsp = reader.nal.nal_unit_type == VPS_NUT   ? &vps_rbsp_
                                : reader.nal.nal_unit_type == SPS_NUT ? &sps_rbsp_
                                : reader.nal.nal_unit_type == PPS_NUT ? &pps_rbsp_
                                                                      : nullptr;
            if (rbsp != nullptr && rbsp->empty()) {
                rbsp->resize(stream.size());
                rbsp->resize(reader.block_decode(rbsp->data(), rbsp->size()));
            }
        }
        if (!described_vps() || !described_sps() || !described_pps()) {
            std::abort();
        }
    }

    bool described_vps() {
        h2645_common_bitreader bits = reader_of(vps_rbsp_);
        return vps_store_[0].parse(bits);
    }
    bool described_sps() {
        h2645_common_bitreader bits = reader_of(sps_rbsp_);
        return sps_store_[0].parse(bits, vps_store_);
    }
    bool described_pps() {
        h2645_common_bitreader bits = reader_of(pps_rbsp_);
        return pps_.parse(bits, sps_store_);
    }

    bool standard_vps() {
        h2645_common_bitreader bits = reader_of(vps_rbsp_);
        return vps_store_[0].parse_standard(bits);
    }
    bool standard_sps() {
        h2645_common_bitreader bits = reader_of(sps_rbsp_);
        return sps_store_[0].parse_standard(bits, vps_store_);
    }
    bool standard_pps() {
        h2645_common_bitreader bits = reader_of(pps_rbsp_);
        return pps_.parse_standard(bits, sps_store_);
    }

    bool traced_vps() {
        h2645_common_bitreader bits = reader_of(vps_rbsp_);
        return vps_store_[0].parse_standard(bits, trace_);
    }
    bool traced_sps() {
        h2645_common_bitreader bits = reader_of(sps_rbsp_);
        return sps_store_[0].parse_standard(bits, vps_store_, trace_);
    }
    bool traced_pps() {
        h2645_common_bitreader bits = reader_of(pps_rbsp_);
        return pps_.parse_standard(bits, sps_store_, trace_);
    }

    bool written_vps() {
        inlined_bitreader bits(reader_of(vps_rbsp_));
        return hand_written_vps(vps_store_[0], bits);
    }
    bool written_sps() {
        inlined_bitreader bits(reader_of(sps_rbsp_));
        return hand_written_sps(sps_store_[0], bits, vps_store_);
    }
    bool written_pps() {
        inlined_bitreader bits(reader_of(pps_rbsp_));
        return hand_written_pps(pps_, bits, sps_store_);
    }

private:
    static h2645_common_bitreader reader_of(const bytes& rbsp) {
        return {rbsp.data(), rbsp.data() + rbsp.size()};
    }

    bytes vps_rbsp_;
    bytes sps_rbsp_;
    bytes pps_rbsp_;
    h2645_common_base_store<h265_nal_vps> vps_store_;
    h2645_common_base_store<h265_nal_sps> sps_store_;
    h265_nal_pps pps_;
    h265_trace trace_;
};

}  // namespace kovran::benchmarks

#endif  // KOVRAN_BENCHMARKS_PARAMETER_SETS_H
