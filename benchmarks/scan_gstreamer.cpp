// Start codes and units found by GStreamer. masked_scan alone knows nothing of NAL units: the
// header byte is looked at here. identify_nalu looks for both ends of each unit.
#include "scan.h"

#include "gstreamer.h"

#include <gst/base/gstbytereader.h>

namespace kovran::benchmarks {
namespace {

constexpr std::size_t start_code_and_header = 5;

units_found masked_scan(const bytes& stream) {
    units_found units;
    GstByteReader reader;
    gst_byte_reader_init(&reader, stream.data(), static_cast<guint>(stream.size()));
    std::size_t at = 0;
    while (stream.size() - at >= start_code_and_header) {
        const auto size = static_cast<guint>(stream.size() - at - 1);
        const guint match = gst_byte_reader_masked_scan_uint32(&reader, 0xFFFFFF80, 0x00000100,
                                                               static_cast<guint>(at), size);
        if (match == ~0U) {
            break;
        }
        units.add(match + std::size_t{3});
        at = match + start_code_and_header;
    }
    return units;
}

units_found identify_nalu(const bytes& stream) {
    static const gstreamer_parser parser = make_gstreamer_parser();
    units_found units;
    GstH265NalUnit unit = {};
    for (std::size_t at = 0; find_unit(parser.get(), stream, at, unit);
         at = unit.offset + unit.size) {
        units.add(unit.offset);
    }
    return units;
}

const bool registered = [] {
    add_scan_contender("gstreamer_masked_scan", /*only_whole_units=*/false, masked_scan);
    add_scan_contender("gstreamer_identify_nalu", /*only_whole_units=*/true, identify_nalu);
    return true;
}();

}  // namespace
}  // namespace kovran::benchmarks
