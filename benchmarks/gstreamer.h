#ifndef KOVRAN_BENCHMARKS_GSTREAMER_H
#define KOVRAN_BENCHMARKS_GSTREAMER_H

#include <kovran/h265/h265_nal_reader.h>

#define GST_USE_UNSTABLE_API  // it is not to change within Debian 12
#include <gst/codecparsers/gsth265parser.h>

#include <memory>

#include "inputs.h"
#include "require.h"

// GStreamer's parser of H.265 headers, for comparison.
namespace kovran::benchmarks {

struct free_gstreamer_parser {
    void operator()(GstH265Parser* parser) const { gst_h265_parser_free(parser); }
};
using gstreamer_parser = std::unique_ptr<GstH265Parser, free_gstreamer_parser>;

inline gstreamer_parser make_gstreamer_parser() {
    return gstreamer_parser(gst_h265_parser_new());
}

// The unit at an offset and, where it is not the last one, its end: both are searched for.
inline bool find_unit(GstH265Parser* parser, const bytes& stream, std::size_t offset,
                      GstH265NalUnit& unit) {
    const GstH265ParserResult result = gst_h265_parser_identify_nalu(
        parser, stream.data(), static_cast<guint>(offset), stream.size(), &unit);
    return result == GST_H265_PARSER_OK || result == GST_H265_PARSER_NO_NAL_END;
}

inline GstH265NalUnit unit_of(GstH265Parser* parser, const bytes& stream,
                              const h265_nal_reader& place) {
    GstH265NalUnit unit = {};
    const auto offset = static_cast<std::size_t>(place.frame_begin - stream.data());
    require(find_unit(parser, stream, offset, unit), "a unit is not found by GStreamer");
    return unit;
}

// A VPS, SPS or PPS, which the parser keeps.
inline bool read_parameter_set(GstH265Parser* parser, GstH265NalUnit& unit) {
    GstH265VPS vps;
    GstH265SPS sps;
    GstH265PPS pps;
    switch (unit.type) {
        case GST_H265_NAL_VPS:
            return gst_h265_parser_parse_vps(parser, &unit, &vps) == GST_H265_PARSER_OK;
        case GST_H265_NAL_SPS:
            return gst_h265_parser_parse_sps(parser, &unit, &sps, /*parse_vui_params=*/TRUE) ==
                   GST_H265_PARSER_OK;
        case GST_H265_NAL_PPS:
            return gst_h265_parser_parse_pps(parser, &unit, &pps) == GST_H265_PARSER_OK;
        default:
            return false;
    }
}

}  // namespace kovran::benchmarks

#endif  // KOVRAN_BENCHMARKS_GSTREAMER_H
