// Parameter sets by GStreamer: it keeps a copy of each in the parser, and derives the pictures of
// predicted sets and the cropped size on the way.
#include <memory>
#include <string>

#include "gstreamer.h"
#include "gstreamer_values.h"
#include "host.h"
#include "parameter_set_streams.h"
#include "parameter_set_values.h"
#include "parsing.h"
#include "require.h"

namespace kovran::benchmarks {
namespace {

// A parser, and records that are parsed into again and again.
struct gstreamer_records {
    gstreamer_parser parser = make_gstreamer_parser();
    GstH265VPS vps = {};
    GstH265SPS sps = {};
    GstH265PPS pps = {};

    bool read_vps(GstH265NalUnit& unit) {
        return gst_h265_parser_parse_vps(parser.get(), &unit, &vps) == GST_H265_PARSER_OK;
    }
    bool read_sps(GstH265NalUnit& unit) {
        return gst_h265_parser_parse_sps(parser.get(), &unit, &sps, /*parse_vui_params=*/TRUE) ==
               GST_H265_PARSER_OK;
    }
    bool read_pps(GstH265NalUnit& unit) {
        return gst_h265_parser_parse_pps(parser.get(), &unit, &pps) == GST_H265_PARSER_OK;
    }
};

void add_stream(parameter_set_stream& input) {
    const auto records = std::make_shared<gstreamer_records>();
    GstH265NalUnit vps = unit_of(records->parser.get(), input.stream, input.vps);
    GstH265NalUnit sps = unit_of(records->parser.get(), input.stream, input.sps);
    GstH265NalUnit pps = unit_of(records->parser.get(), input.stream, input.pps);
    host reader;
    require(reader.read(input.vps, look_away) && records->read_vps(vps) &&
                values_of(records->vps) == values_of(reader.vps),
            "VPS by GStreamer: " + input.name);
    require(reader.read(input.sps, look_away) && records->read_sps(sps) &&
                values_of(records->sps) == values_of(reader.sps),
            "SPS by GStreamer: " + input.name);
    require(reader.read(input.pps, look_away) && records->read_pps(pps) &&
                values_of(records->pps) == values_of(reader.pps),
            "PPS by GStreamer: " + input.name);

    contend("vps/" + input.name + "/gstreamer", size_of(input.vps),
            [records, vps]() mutable { return records->read_vps(vps); });
    contend("sps/" + input.name + "/gstreamer", size_of(input.sps),
            [records, sps]() mutable { return records->read_sps(sps); });
    contend("pps/" + input.name + "/gstreamer", size_of(input.pps),
            [records, pps]() mutable { return records->read_pps(pps); });
}

const bool registered = [] {
    for (parameter_set_stream& input : parameter_set_streams()) {
        add_stream(input);
    }
    return true;
}();

}  // namespace
}  // namespace kovran::benchmarks
