// The same walk with GStreamer, which reads slice headers to their end.
#include "walk.h"

#include "gstreamer.h"

namespace kovran::benchmarks {
namespace {

void see_slice(GstH265Parser* parser, GstH265NalUnit& unit, stream_seen& seen) {
    GstH265SliceHdr slice;
    if (gst_h265_parser_parse_slice_hdr(parser, &unit, &slice) != GST_H265_PARSER_OK) {
        return;
    }
    seen.sum_of_pic_order_cnt_lsb += slice.pic_order_cnt_lsb;
    if (slice.first_slice_segment_in_pic_flag != 0) {
        seen.add_picture(/*is_intra=*/GST_H265_IS_I_SLICE(&slice));
    }
    gst_h265_slice_hdr_free(&slice);
}

void see_messages(GstH265Parser* parser, GstH265NalUnit& unit, stream_seen& seen) {
    GArray* messages = nullptr;
    gst_h265_parser_parse_sei(parser, &unit, &messages);
    seen.messages += messages->len;
    g_array_free(messages, TRUE);
}

stream_seen walk(const bytes& stream) {
    const gstreamer_parser parser = make_gstreamer_parser();
    stream_seen seen;
    GstH265NalUnit unit = {};
    for (std::size_t at = 0; find_unit(parser.get(), stream, at, unit);
         at = unit.offset + unit.size) {
        ++seen.units;
        switch (unit.type) {
            case GST_H265_NAL_VPS:
            case GST_H265_NAL_SPS:
            case GST_H265_NAL_PPS:
                read_parameter_set(parser.get(), unit);
                break;
            case GST_H265_NAL_PREFIX_SEI:
            case GST_H265_NAL_SUFFIX_SEI:
                see_messages(parser.get(), unit, seen);
                break;
            default:
                if (unit.type <= GST_H265_NAL_SLICE_CRA_NUT) {
                    see_slice(parser.get(), unit, seen);
                }
                break;
        }
    }
    return seen;
}

const bool registered = [] {
    add_walk_contender("gstreamer", walk, [](stream_seen&) {});
    return true;
}();

}  // namespace
}  // namespace kovran::benchmarks
