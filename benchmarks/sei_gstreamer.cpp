// SEI messages by GStreamer, which also reads recovery points, HDR messages and more, and allocates
// an array for each unit.
#include <memory>
#include <vector>

#include "gstreamer.h"
#include "sei_stream.h"

namespace kovran::benchmarks {
namespace {

struct gstreamer_messages {
    gstreamer_parser parser = make_gstreamer_parser();
    std::vector<GstH265NalUnit> units;

    gstreamer_messages() {
        const sei_stream& input = the_sei_stream();
        for (const h265_nal_reader& place : input.parameter_sets) {
            GstH265NalUnit unit = unit_of(parser.get(), input.stream, place);
            require(read_parameter_set(parser.get(), unit), "parameter sets by GStreamer");
        }
        for (const h265_nal_reader& place : input.units) {
            units.push_back(unit_of(parser.get(), input.stream, place));
        }
    }

    // `see` is called with each message.
    template <class See>
    std::size_t read(See&& see) {
        std::size_t read = 0;
        for (GstH265NalUnit& unit : units) {
            GArray* messages = nullptr;
            gst_h265_parser_parse_sei(parser.get(), &unit, &messages);
            for (guint i = 0; i < messages->len; ++i) {
                see(g_array_index(messages, GstH265SEIMessage, i));
            }
            read += messages->len;
            g_array_free(messages, TRUE);
        }
        return read;
    }
};

const bool registered = [] {
    const auto messages = std::make_shared<gstreamer_messages>();
    values all;
    messages->read([&all](const GstH265SEIMessage& message) {
        all.push_back(message.payloadType);
        if (message.payloadType == GST_H265_SEI_PIC_TIMING) {
            all.push_back(message.payload.pic_timing.pic_struct);
        }
    });
    host reader;
    require(all == values_of_messages(reader), "SEI messages by GStreamer");
    contend("sei/rich/gstreamer", the_sei_stream().size,
            [messages] { return messages->read([](const GstH265SEIMessage&) {}); });
    return true;
}();

}  // namespace
}  // namespace kovran::benchmarks
