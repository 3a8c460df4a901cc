#include "counted_kernels.h"

#include <kovran/h265/h265_nal_reader.h>
#include <kovran/h265/h265_nal_writer.h>

#include "h2645_common/zero_pair_copy.h"
#include "h2645_common/zero_pair_search.h"

#include <cstddef>
#include <fstream>
#include <iterator>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "heavy_sps.h"
#include "host.h"
#include "inputs.h"
#include "nal_units.h"
#include "parameter_sets.h"
#include "require.h"

namespace kovran::benchmarks {
namespace {

// A stream, its units, and room for each of them.
struct framed {
    explicit framed(bytes framed_bytes)
        : stream(std::move(framed_bytes)), units(nal_units(stream)) {
        room.resize(h265_nal_writer::recommended_output_size(stream.size()));
        rbsp.resize(stream.size());
    }

    bytes stream;
    std::vector<h265_nal_reader> units;
    bytes rbsp;
    bytes room;
};

bool scan(framed& input) {
    unsigned char* const end = input.stream.data() + input.stream.size();
    std::size_t units = 0;
    h265_nal_reader reader(nalfmt_annex_b);
    for (reader.scan(input.stream.data(), end); reader.found; reader.scan(reader.cursor, end)) {
        ++units;
    }
    return units == input.units.size();
}

bool decode(framed& input) {
    bool all_decoded = true;
    for (h265_nal_reader unit : input.units) {
        all_decoded = unit.block_decode(input.rbsp.data(), size_of(unit)) != 0 && all_decoded;
    }
    return all_decoded;
}

bool encode(const bytes& rbsp, bytes& room) {
    const h265_nal trail_r{0, 1, TRAIL_R, true};
    h265_nal_writer writer(room.data(), room.data(), room.data() + room.size(), nalfmt_annex_b);
    return writer.block_encode(rbsp.data(), rbsp.size(), trail_r, /*zero_bytes=*/1) != 0;
}

bool rewrite(framed& input) {
    h265_nal_writer writer(input.room.data(), input.room.data(),
                           input.room.data() + input.room.size(), nalfmt_annex_b);
    bool all_written = true;
    for (h265_nal_reader unit : nal_units(input.stream)) {
        const std::size_t size = unit.block_decode(input.rbsp.data(), size_of(unit));
        all_written =
            writer.block_encode(input.rbsp.data(), size, unit.nal, /*zero_bytes=*/1) != 0 &&
            all_written;
    }
    return all_written;
}

void add_framing(kernels& all) {
    const std::map<std::string, bytes> streams = {
        {"large_unit", annex_b_unit(noise(64 * kibibyte))},
        {"170_byte_units", annex_b_stream(170, 16 * kibibyte)},
        {"zeros", bytes(64 * kibibyte)},
        {"emulation_only", annex_b_unit(bytes(64 * kibibyte))},
        {"emulation_every_61", annex_b_unit(noise_with_zero_pairs(64 * kibibyte, 61))}};
    for (const auto& [name, stream] : streams) {
        const auto input = std::make_shared<framed>(stream);
        all["scan/" + name] = [input] { return scan(*input); };
        if (!input->units.empty()) {
            all["decode/" + name] = [input] { return decode(*input); };
            all["rewrite/" + name] = [input] { return rewrite(*input); };
        }
    }
    const std::map<std::string, bytes> payloads = {
        {"large_unit", noise(64 * kibibyte)},
        {"170_byte_unit", noise(170)},
        {"zeros", bytes(64 * kibibyte)},
        {"emulation_every_61", noise_with_zero_pairs(64 * kibibyte, 61)}};
    for (const auto& [name, payload] : payloads) {
        bytes room(h265_nal_writer::recommended_output_size(payload.size()));
        all["encode/" + name] = [data = payload, out = std::move(room)]() mutable {
            return encode(data, out);
        };
    }
}

#if defined(__x86_64__)
// What the framing runs on where there is AVX2; this program has the library built without it.
void add_avx2(kernels& all) {
    if (!zero_pair::has_avx2()) {
        return;
    }
    const auto data = std::make_shared<bytes>(noise_with_zero_pairs(64 * kibibyte, 61));
    all["avx2/find"] = [data] {
        const unsigned char* const end = data->data() + data->size();
        const unsigned char* at = data->data();
        std::size_t found = 0;
        while ((at = zero_pair::find_avx2<zero_pair::start_code>(at, end)) != nullptr) {
            ++found;
            ++at;
        }
        return found == (data->size() - 3) / 61 + 1;
    };
    all["avx2/copy"] = [data, out = bytes(data->size())]() mutable {
        std::size_t at = 0;
        while (at < data->size()) {
            at += zero_pair::copy_avx2(out.data() + at, data->data() + at, data->size() - at);
            at += at < data->size() ? 2U : 0U;
        }
        return at == data->size();
    };
}
#endif

bytes sample(const std::string& name) {
    std::ifstream file(KOVRAN_STREAMS "/" + name, std::ios::binary);
    require(file.is_open(), name);
    return {std::istreambuf_iterator<char>(file), {}};
}

// A sample and a host that has read it.
template <rules read_by>
struct read_sample {
    explicit read_sample(const std::string& name) : stream(sample(name)), units(nal_units(stream)) {
        require(read_all(), name);
    }

    bool read_all() {
        bool all_read = true;
        for (const h265_nal_reader& unit : units) {
            all_read = reader.read(unit, look_away) && all_read;
        }
        return all_read;
    }

    // Those of the types from `first` to `last`, by one of the host's operations.
    template <class Read>
    bool read_types(h265_nal_unit_type first, h265_nal_unit_type last, Read read) {
        bool all_read = true;
        for (const h265_nal_reader& unit : units) {
            if (unit.nal.nal_unit_type >= first && unit.nal.nal_unit_type <= last) {
                all_read = read(unit) && all_read;
            }
        }
        return all_read;
    }

    bytes stream;
    std::vector<h265_nal_reader> units;
    host_by<read_by> reader;
};

template <rules read_by>
void add_syntax(kernels& all, const std::string& suffix) {
    for (const std::string name : {"sei_everything", "kvazaar_vui_full", "kvazaar_tiles_slices"}) {
        const auto input = std::make_shared<read_sample<read_by>>(name + ".hevc");
        host_by<read_by>& reader = input->reader;
        all["walk/" + name + suffix] = [input] {
            input->units = nal_units(input->stream);
            return input->read_all();
        };
        const auto add = [&](const char* what, h265_nal_unit_type first, h265_nal_unit_type last,
                             auto read) {
            all[what + name + suffix] = [input, first, last, read] {
                return input->read_types(first, last, read);
            };
        };
        add("vps/", VPS_NUT, VPS_NUT,
            [&reader](const h265_nal_reader& unit) { return reader.read_vps(unit); });
        add("sps/", SPS_NUT, SPS_NUT,
            [&reader](const h265_nal_reader& unit) { return reader.read_sps(unit); });
        add("pps/", PPS_NUT, PPS_NUT,
            [&reader](const h265_nal_reader& unit) { return reader.read_pps(unit); });
        add("slices/", TRAIL_N, CRA_NUT,
            [&reader](const h265_nal_reader& unit) { return reader.read_slice(unit); });
    }
    const auto messages = std::make_shared<read_sample<read_by>>("sei_everything.hevc");
    all["sei/sei_everything" + suffix] = [messages] {
        return messages->read_types(PREFIX_SEI_NUT, SUFFIX_SEI_NUT,
                                    [&](const h265_nal_reader& unit) {
                                        return messages->reader.read_sei(unit, look_away);
                                    });
    };
    using heavy_input = std::pair<bytes, host_by<read_by>>;
    const auto heavy = std::make_shared<heavy_input>(heavy_sps(), host_by<read_by>());
    heavy->second.vps_store[0].valid = true;
    all["sps/heavy" + suffix] = [heavy] {
        h2645_common_bitreader bits(heavy->first.data(), heavy->first.data() + heavy->first.size());
        return heavy->second.parse(heavy->second.sps, bits, heavy->second.vps_store);
    };
}

void add_descriptions(kernels& all) {
    const auto sets = std::make_shared<parameter_sets>();
    all["vps/described"] = [sets] { return sets->described_vps(); };
    all["vps/standard"] = [sets] { return sets->standard_vps(); };
    all["vps/traced"] = [sets] { return sets->traced_vps(); };
    all["vps/written_by_hand"] = [sets] { return sets->written_vps(); };
    all["sps/described"] = [sets] { return sets->described_sps(); };
    all["sps/standard"] = [sets] { return sets->standard_sps(); };
    all["sps/traced"] = [sets] { return sets->traced_sps(); };
    all["sps/written_by_hand"] = [sets] { return sets->written_sps(); };
    all["pps/described"] = [sets] { return sets->described_pps(); };
    all["pps/standard"] = [sets] { return sets->standard_pps(); };
    all["pps/traced"] = [sets] { return sets->traced_pps(); };
    all["pps/written_by_hand"] = [sets] { return sets->written_pps(); };
}

}  // namespace

kernels all_kernels() {
    kernels all;
    add_framing(all);
#if defined(__x86_64__)
    add_avx2(all);
#endif
    add_syntax<rules::standard>(all, "");
    add_syntax<rules::own>(all, "/own");
    add_descriptions(all);
    return all;
}

}  // namespace kovran::benchmarks
