// Slice segment headers by GStreamer, which reads them to their end.
#include <memory>
#include <utility>
#include <vector>

#include "gstreamer.h"
#include "slice_streams.h"

namespace kovran::benchmarks {
namespace {

struct gstreamer_slices {
    gstreamer_parser parser = make_gstreamer_parser();
    std::vector<GstH265NalUnit> units;

    explicit gstreamer_slices(const slice_stream& input) {
        for (const h265_nal_reader& place : input.parameter_sets) {
            GstH265NalUnit unit = unit_of(parser.get(), input.stream, place);
            require(read_parameter_set(parser.get(), unit), "parameter sets by GStreamer");
        }
        for (const h265_nal_reader& place : input.slices) {
            units.push_back(unit_of(parser.get(), input.stream, place));
        }
    }

    // `see` is called with each header.
    template <class See>
    std::size_t read(See&& see) {
        std::size_t read = 0;
        for (GstH265NalUnit& unit : units) {
            GstH265SliceHdr slice;
            if (gst_h265_parser_parse_slice_hdr(parser.get(), &unit, &slice) ==
                GST_H265_PARSER_OK) {
                see(slice);
                gst_h265_slice_hdr_free(&slice);
                ++read;
            }
        }
        return read;
    }
};

const bool registered = [] {
    for (const slice_stream& input : slice_streams()) {
        const auto slices = std::make_shared<gstreamer_slices>(input);
        values all;
        slices->read([&all](const GstH265SliceHdr& slice) {
            all.insert(all.end(), {slice.first_slice_segment_in_pic_flag, slice.pps->id, slice.type,
                                   slice.pic_order_cnt_lsb});
        });
        host reader;
        require(all == values_of_slices(reader, input),
                "slice headers by GStreamer: " + input.name);
        contend("slices/" + input.name + "/gstreamer", input.stream.size(),
                [slices] { return slices->read([](const GstH265SliceHdr&) {}); });
    }
    return true;
}();

}  // namespace
}  // namespace kovran::benchmarks
