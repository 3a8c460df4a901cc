#ifndef KOVRAN_BENCHMARKS_WALK_H
#define KOVRAN_BENCHMARKS_WALK_H

#include <cstddef>
#include <string>
#include <vector>

#include "inputs.h"
#include "require.h"
#include "throughput.h"

namespace kovran::benchmarks {

// What a walk over a whole stream has seen.
struct stream_seen {
    std::size_t units = 0;
    std::size_t pictures = 0;
    std::size_t intra_pictures = 0;  // by the type of their first slice
    std::size_t sum_of_pic_order_cnt_lsb = 0;
    std::size_t messages = 0;

    void add_picture(bool is_intra) {
        ++pictures;
        intra_pictures += is_intra ? 1U : 0U;
    }

    bool operator==(const stream_seen& other) const {
        return units == other.units && pictures == other.pictures &&
               intra_pictures == other.intra_pictures &&
               sum_of_pic_order_cnt_lsb == other.sum_of_pic_order_cnt_lsb &&
               messages == other.messages;
    }
};

struct walk_input {
    std::string name;
    bytes stream;
    stream_seen seen;
};

std::vector<walk_input>& walk_inputs();

// `walk` takes the bytes to stream_seen. What a contender cannot tell, `forget` sets to 0.
template <class Walk, class Forget>
void add_walk_contender(const std::string& contender, Walk walk, Forget forget) {
    for (walk_input& input : walk_inputs()) {
        const std::string name = "walk/" + input.name + "/" + contender;
        stream_seen expected = input.seen;
        forget(expected);
        require(walk(input.stream) == expected, name);
        contend(name, input.stream.size(), [&input, walk] { return walk(input.stream).pictures; });
    }
}

}  // namespace kovran::benchmarks

#endif  // KOVRAN_BENCHMARKS_WALK_H
