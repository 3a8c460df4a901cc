#include "parameter_set_streams.h"

#include <kovran/h265/h265_nal_writer.h>

#include <utility>

#include "heavy_sps.h"
#include "nal_units.h"
#include "stream_file.h"

namespace kovran::benchmarks {
namespace {

// The stream with another SPS in the place of its own.
bytes with_sps(bytes stream, const bytes& rbsp) {
    const h265_nal_reader sps = nal_units(stream, SPS_NUT).front();
    bytes unit(h265_nal_writer::recommended_output_size(rbsp.size()));
    h265_nal_writer writer(unit.data(), unit.data(), unit.data() + unit.size(), nalfmt_annex_b);
    unit.resize(writer.block_encode(rbsp.data(), rbsp.size(), sps.nal, /*zero_bytes=*/1));
    const auto begin = stream.begin() + (sps.frame_begin - stream.data());
    const auto place = stream.erase(begin, begin + (sps.decode_fence - sps.frame_begin));
    stream.insert(place, unit.begin(), unit.end());
    return stream;
}

}  // namespace

std::vector<parameter_set_stream>& parameter_set_streams() {
    static std::vector<parameter_set_stream> streams = [] {
        const bytes typical = stream_file("lo", 2 * kibibyte);
        std::vector<parameter_set_stream> made(3);
        made[0].name = "typical";
        made[0].stream = typical;
        made[1].name = "rich";
        made[1].stream = stream_file("rich", 2 * kibibyte);
        made[2].name = "heavy";
        made[2].stream = with_sps(typical, heavy_sps());
        for (parameter_set_stream& each : made) {
            each.vps = nal_units(each.stream, VPS_NUT).front();
            each.sps = nal_units(each.stream, SPS_NUT).front();
            each.pps = nal_units(each.stream, PPS_NUT).front();
        }
        return made;
    }();
    return streams;
}

}  // namespace kovran::benchmarks
