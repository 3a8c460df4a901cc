// A stream cut into pictures by FFmpeg's parser, which reads the parameter sets and the header of
// each picture's first slice, and no SEI messages but those with a time code or HDR.
#include "walk.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavutil/log.h>
}

#include <algorithm>
#include <limits>
#include <memory>

namespace kovran::benchmarks {
namespace {

struct close_parser {
    void operator()(AVCodecParserContext* parser) const { av_parser_close(parser); }
};
struct free_context {
    void operator()(AVCodecContext* context) const { avcodec_free_context(&context); }
};

stream_seen walk(const bytes& stream) {
    const std::unique_ptr<AVCodecParserContext, close_parser> parser(
        av_parser_init(AV_CODEC_ID_HEVC));
    const std::unique_ptr<AVCodecContext, free_context> context(
        avcodec_alloc_context3(avcodec_find_decoder(AV_CODEC_ID_HEVC)));
    stream_seen seen;
    std::size_t at = 0;
    bool last = false;
    while (!last) {
        last = at == stream.size();  // one call more, without bytes, gives what is held back
        const auto left =
            std::min<std::size_t>(stream.size() - at, std::numeric_limits<int>::max() / 2);
        std::uint8_t* picture = nullptr;
        int size = 0;
        const int used = av_parser_parse2(
            parser.get(), context.get(), &picture, &size, last ? nullptr : stream.data() + at,
            static_cast<int>(left), AV_NOPTS_VALUE, AV_NOPTS_VALUE, 0);
        at += static_cast<std::size_t>(used);
        if (size != 0) {
            seen.add_picture(/*is_intra=*/parser->pict_type == AV_PICTURE_TYPE_I);
        }
    }
    return seen;
}

const bool registered = [] {
    av_log_set_level(AV_LOG_QUIET);
    add_walk_contender("ffmpeg", walk, [](stream_seen& expected) {
        expected.units = 0;
        expected.sum_of_pic_order_cnt_lsb = 0;
        expected.messages = 0;
    });
    return true;
}();

}  // namespace
}  // namespace kovran::benchmarks
