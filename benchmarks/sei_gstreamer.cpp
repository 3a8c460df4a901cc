// SEI messages by GStreamer, which reads nine types of them, and allocates an array for each unit.
#include <memory>
#include <vector>

#include "gstreamer.h"
#include "sei_stream.h"

namespace kovran::benchmarks {
namespace {

struct gstreamer_messages {
    gstreamer_parser parser = make_gstreamer_parser();
    std::vector<GstH265NalUnit> units;

    explicit gstreamer_messages(const sei_stream& input) {
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

void add_gstreamer(const sei_stream& input) {
    const auto messages = std::make_shared<gstreamer_messages>(input);
    values all;
    messages->read([&all](const GstH265SEIMessage& message) {
        all.push_back(message.payloadType);
        if (message.payloadType == GST_H265_SEI_PIC_TIMING) {
            all.push_back(message.payload.pic_timing.pic_struct);
        }
    });
    host reader;
    require(all == values_of_messages(reader, input), "SEI messages by GStreamer: " + input.name);
    contend("sei/" + input.name + "/gstreamer", input.size,
            [messages] { return messages->read([](const GstH265SEIMessage&) {}); });
}

const bool registered = [] {
    for (const auto& input : all_sei_streams()) {
        add_gstreamer(*input);
    }
    return true;
}();

}  // namespace
}  // namespace kovran::benchmarks
