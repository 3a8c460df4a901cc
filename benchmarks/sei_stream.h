#ifndef KOVRAN_BENCHMARKS_SEI_STREAM_H
#define KOVRAN_BENCHMARKS_SEI_STREAM_H

#include <kovran/h265/h265_nal_reader.h>
#include <kovran/h265/sei/h265_nal_sei_message.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "host.h"
#include "nal_units.h"
#include "parsing.h"
#include "require.h"
#include "stream_file.h"

namespace kovran::benchmarks {

// SEI units, and the parameter sets that they refer to.
struct sei_stream {
    std::string name;
    bytes stream;
    std::vector<h265_nal_reader> parameter_sets;
    std::vector<h265_nal_reader> units;
    std::size_t size = 0;  // of the SEI units together

    sei_stream(std::string its_name, bytes its_bytes)
        : name(std::move(its_name)), stream(std::move(its_bytes)) {
        for (const h265_nal_reader& unit : nal_units(stream)) {
            const h265_nal_unit_type type = unit.nal.nal_unit_type;
            if (type == PREFIX_SEI_NUT || type == SUFFIX_SEI_NUT) {
                add(unit);
            } else if (type >= VPS_NUT && type <= PPS_NUT) {
                parameter_sets.push_back(unit);
            }
        }
    }

    sei_stream(const sei_stream&) = delete;
    sei_stream& operator=(const sei_stream&) = delete;

    // Keeps the units that begin with a message of this type; none of them has another.
    void keep(unsigned int payload_type) {
        std::vector<h265_nal_reader> all;
        all.swap(units);
        size = 0;
        for (const h265_nal_reader& unit : all) {
            if (*unit.payload_begin == payload_type) {
                add(unit);
            }
        }
        require(!units.empty(), name);
    }

private:
    void add(const h265_nal_reader& unit) {
        units.push_back(unit);
        size += size_of(unit);
    }
};

using sei_streams = std::vector<std::unique_ptr<sei_stream>>;

// One with many kinds of messages, and one for each kind that GStreamer has a structure for: out of
// the first, or a message by hand.
inline const sei_streams& all_sei_streams() {
    static const sei_streams streams = [] {
        sei_streams all;
        all.push_back(std::make_unique<sei_stream>("rich", stream_file("rich")));
        const auto add_type = [&all](unsigned int payload_type, bytes stream) {
            all.push_back(std::make_unique<sei_stream>(h265_nal_sei_payload_name(payload_type),
                                                       std::move(stream)));
            all.back()->keep(payload_type);
        };
        for (const unsigned int payload_type : {0U, 1U, 6U, 137U, 144U}) {
            add_type(payload_type, stream_file("rich"));
        }
        const auto add_by_hand = [&](unsigned int payload_type, const bytes& payload) {
            bytes unit = {0,
                          0,
                          0,
                          1,
                          0x4E,
                          0x01,
                          static_cast<unsigned char>(payload_type),
                          static_cast<unsigned char>(payload.size())};
            unit.insert(unit.end(), payload.begin(), payload.end());
            unit.push_back(0x80);
            bytes stream = stream_file("rich");
            stream.insert(stream.end(), unit.begin(), unit.end());
            add_type(payload_type, stream);
        };
        bytes captions = {0xB5, 0x00, 0x31, 'G', 'A', '9', '4', 0x03, 0xD4, 0xFF};
        for (unsigned int triple = 0; triple < 20; ++triple) {
            captions.insert(captions.end(), {0xFC, 0x94, 0x2C});
        }
        captions.push_back(0xFF);
        add_by_hand(4, captions);
        add_by_hand(5, bytes(200, 'x'));
        add_by_hand(136, {0x60, 0x40, 0x2A, 0x85, 0x0C, 0x10});
        return all;
    }();
    return streams;
}

// A host that has read the parameter sets and all messages once: their types, and pic_struct, as
// the delays of picture timing are wider than the fields that GStreamer has for them.
template <class Host>
values values_of_messages(Host& reader, const sei_stream& input) {
    for (const h265_nal_reader& unit : input.parameter_sets) {
        require(reader.read(unit, look_away), "parameter sets of the SEI messages");
    }
    values all;
    for (const h265_nal_reader& unit : input.units) {
        const bool read = reader.read_sei(unit, [&](const h265_nal_sei_reader& message) {
            all.push_back(message.payload_type);
            if (message.payload_type == h265_nal_sei_payload_type_prefix_pic_timing) {
                all.push_back(reader.pic_struct());
            }
        });
        require(read, "SEI messages: " + input.name);
    }
    return all;
}

}  // namespace kovran::benchmarks

#endif  // KOVRAN_BENCHMARKS_SEI_STREAM_H
