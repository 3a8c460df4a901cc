// A stream taken apart into its units, decoded, encoded and put together again, beside memcpy.
#include "rewrite.h"

#include <kovran/h265/h265_nal_reader.h>
#include <kovran/h265/h265_nal_writer.h>

#include <cstring>
#include <memory>
#include <utility>

#include "nal_units.h"
#include "require.h"
#include "stream_file.h"
#include "throughput.h"

namespace kovran::benchmarks {
namespace {

std::size_t rewrite(bytes& stream, bytes& rbsp, bytes& out) {
    h265_nal_writer writer(out.data(), out.data(), out.data() + out.size(), nalfmt_annex_b);
    unsigned char* const end = stream.data() + stream.size();
    h265_nal_reader next(nalfmt_annex_b);
    next.scan(stream.data(), end);
    while (next.found) {
        h265_nal_reader unit = next;
        next.scan(next.cursor, end);
        unit.decode_fence = next.found ? next.frame_begin - next.zero_count : end;
        const std::size_t size = unit.block_decode(rbsp.data(), size_of(unit));
        if (writer.block_encode(rbsp.data(), size, unit.nal, /*zero_bytes=*/1) == 0) {
            return 0;
        }
    }
    return writer.data_length();
}

void add_input(rewrite_input& input) {
    const auto rbsp = std::make_shared<bytes>(input.stream.size());
    const auto out = std::make_shared<bytes>(2 * input.stream.size());
    const std::size_t size = rewrite(input.stream, *rbsp, *out);
    const bytes written(out->begin(), out->begin() + static_cast<std::ptrdiff_t>(size));
    require(size != 0 && written == normalised(input.stream), "rewriting " + input.name);

    const std::string job = "rewrite/" + input.name + "/";
    contend(job + "kovran", input.stream.size(),
            [&input, rbsp, out] { return rewrite(input.stream, *rbsp, *out); });
    contend(job + "memcpy", input.stream.size(), [&input, out] {
        return std::memcpy(out->data(), input.stream.data(), input.stream.size());
    });
}

const bool registered = [] {
    for (rewrite_input& input : rewrite_inputs()) {
        add_input(input);
    }
    return true;
}();

}  // namespace

std::vector<rewrite_input>& rewrite_inputs() {
    static std::vector<rewrite_input> inputs = [] {
        std::vector<rewrite_input> made;
        made.push_back({"hi", stream_file("hi", 4 * kibibyte * kibibyte)});
        made.push_back({"lo", stream_file("lo", in_cache)});
        made.push_back({"rich", stream_file("rich")});
        return made;
    }();
    return inputs;
}

bytes normalised(bytes stream) {
    bytes out;
    for (const h265_nal_reader& unit : nal_units(stream)) {
        out.insert(out.end(), {0, 0, 0, 1});
        out.insert(out.end(), unit.nal_begin, unit.decode_fence);
    }
    return out;
}

}  // namespace kovran::benchmarks
