// The same by FFmpeg's bitstream filter that keeps units of chosen types, here of all: it splits,
// decodes and encodes them without reading their content.
#include "rewrite.h"

extern "C" {
#include <libavcodec/bsf.h>
#include <libavutil/log.h>
}

#include <cstring>
#include <memory>
#include <string>

#include "require.h"
#include "throughput.h"

namespace kovran::benchmarks {
namespace {

struct free_packet {
    void operator()(AVPacket* packet) const { av_packet_free(&packet); }
};
struct free_filter {
    void operator()(AVBSFContext* filter) const { av_bsf_free(&filter); }
};
using packet = std::unique_ptr<AVPacket, free_packet>;
using filter = std::unique_ptr<AVBSFContext, free_filter>;

filter make_filter() {
    AVBSFContext* parsed = nullptr;
    require(av_bsf_list_parse_str("filter_units=pass_types=0-63", &parsed) == 0, "av_bsf");
    filter made(parsed);
    made->par_in->codec_id = AV_CODEC_ID_HEVC;
    require(av_bsf_init(made.get()) == 0, "av_bsf_init");
    return made;
}

struct ffmpeg_rewriter {
    filter units = make_filter();
    packet source{av_packet_alloc()};
    packet in{av_packet_alloc()};
    packet out{av_packet_alloc()};

    explicit ffmpeg_rewriter(const bytes& stream) {
        require(av_new_packet(source.get(), static_cast<int>(stream.size())) == 0, "av_new_packet");
        std::memcpy(source->data, stream.data(), stream.size());
    }

    // Leaves the result in `out`.
    std::size_t run() {
        av_packet_unref(out.get());
        if (av_packet_ref(in.get(), source.get()) != 0 ||
            av_bsf_send_packet(units.get(), in.get()) != 0 ||
            av_bsf_receive_packet(units.get(), out.get()) != 0) {
            return 0;
        }
        return static_cast<std::size_t>(out->size);
    }
};

const bool registered = [] {
    av_log_set_level(AV_LOG_QUIET);
    for (const rewrite_input& input : rewrite_inputs()) {
        const auto rewriter = std::make_shared<ffmpeg_rewriter>(input.stream);
        const std::size_t size = rewriter->run();
        const bytes written(rewriter->out->data, rewriter->out->data + size);
        require(normalised(written) == normalised(input.stream),
                "rewriting by FFmpeg: " + input.name);
        contend("rewrite/" + input.name + "/ffmpeg", input.stream.size(),
                [rewriter] { return rewriter->run(); });
    }
    return true;
}();

}  // namespace
}  // namespace kovran::benchmarks
