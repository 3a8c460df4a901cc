#include <kovran/kovran.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <string>
#include <thread>
#include <vector>

#include "support/same_fields.h"
#include "support/slice_record_fields.h"
#include "support/stream_reading.h"

namespace kovran {
namespace {
// Objects that are distinct may be used on distinct threads: all that these share are the library's
// tables and the bytes of the streams, to which a reader does not write. The thread sanitizer
// (preset `thread`) sees every other byte that they shared.

using bytes = std::vector<unsigned char>;

constexpr unsigned int thread_count = 16;

// What was read of one stream.
struct records {
    h2645_common_base_store<h265_nal_vps> vps;
    h2645_common_base_store<h265_nal_sps> sps;
    h2645_common_base_store<h265_nal_pps> pps;
    std::vector<h265_slice_segment_header> slices;
    std::vector<h265_nal_sei_buffering_period> periods;
    std::vector<h265_nal_sei_pic_timing> timings;
    std::vector<h265_nal_sei_active_parameter_sets> active_sets;
    std::vector<const char*> names;
    bytes copy;  // of the units, written anew
};

void read_message(records& all, const h265_nal_sei_reader& message) {
    h2645_common_bitreader bits(message.payload_begin, message.payload_end);
    bool read = true;
    switch (message.payload_type) {
        case h265_nal_sei_payload_type_prefix_buffering_period:
            read = all.periods.emplace_back().parse(bits, all.sps);
            all.sps.active_id = all.periods.back().bp_seq_parameter_set_id;
            break;
        case h265_nal_sei_payload_type_prefix_pic_timing:
            read = all.timings.emplace_back().parse(bits, all.sps);
            all.names.push_back(all.timings.back().pic_struct_to_str());
            break;
        case h265_nal_sei_payload_type_prefix_active_parameter_sets:
            read = all.active_sets.emplace_back().parse(bits, all.vps);
            break;
        default:
            break;
    }
    all.names.push_back(read ? "read" : "not read");
}

void read_unit(records& all, const h265_nal& nal, bytes& rbsp) {
    h2645_common_bitreader bits(rbsp.data(), rbsp.data() + rbsp.size());
    bool read = true;
    switch (nal.nal_unit_type) {
        case VPS_NUT: {
            h265_nal_vps vps;
            read = vps.parse(bits);
            all.vps[vps.vps_video_parameter_set_id] = vps;
            break;
        }
        case SPS_NUT: {
            h265_nal_sps sps;
            read = sps.parse(bits, all.vps);
            all.names.push_back(sps.vui_parameters.video_format_to_str());
            all.sps[sps.sps_seq_parameter_set_id] = sps;
            break;
        }
        case PPS_NUT: {
            h265_nal_pps pps;
            read = pps.parse(bits, all.sps);
            all.pps[pps.pps_pic_parameter_set_id] = pps;
            break;
        }
        case AUD_NUT:
            read = h265_nal_aud().parse(bits);
            break;
        case PREFIX_SEI_NUT:
        case SUFFIX_SEI_NUT: {
            h265_nal_sei_reader messages(rbsp.data(), rbsp.data() + rbsp.size(), nal.nal_unit_type);
            while (messages.next_message()) {
                all.names.push_back(h265_nal_sei_payload_type_to_str(
                    static_cast<h265_nal_sei_payload_type>(messages.payload_type),
                    nal.nal_unit_type));
                read_message(all, messages);
            }
            break;
        }
        default:
            if (nal.nal_unit_type <= CRA_NUT) {
                h265_slice_segment_header& slice = all.slices.emplace_back();
                read = slice.parse(bits, all.pps, all.sps, all.vps, nal.nal_unit_type);
                all.names.push_back(slice.slice_type_to_str());
            }
            break;
    }
    all.names.push_back(h265_nal_unit_type_to_str(nal.nal_unit_type));
    all.names.push_back(read ? "read" : "not read");
}

records read_stream(bytes& stream) {
    records all;
    all.copy.resize(h265_nal_writer::recommended_output_size(stream.size()));
    h265_nal_writer writer(all.copy.data(), all.copy.data(), all.copy.data() + all.copy.size(),
                           nalfmt_annex_b);
    unsigned char* const end = stream.data() + stream.size();
    h265_nal_reader next(nalfmt_annex_b);
    next.scan(stream.data(), end);
    while (next.found) {
        h265_nal_reader unit = next;
        next.scan(next.cursor, end);
        bytes rbsp(static_cast<std::size_t>(end - unit.payload_begin));
        rbsp.resize(unit.block_decode(rbsp.data(), rbsp.size()));
        read_unit(all, unit.nal, rbsp);
        all.names.push_back(
            writer.block_encode(rbsp.data(), rbsp.size(), unit.nal, 1) != 0 ? "fits" : "too long");
    }
    all.copy.resize(writer.data_length());
    return all;
}

template <class Record>
bool same_records(const h2645_common_base_store<Record>& a,
                  const h2645_common_base_store<Record>& b) {
    return a.active_id == b.active_id &&
           std::equal(a.begin(), a.end(), b.begin(), b.end(), [](const auto& one, const auto& two) {
               return one.first == two.first && test::same_fields(one.second, two.second);
           });
}

template <class Record>
bool same_records(const std::vector<Record>& a, const std::vector<Record>& b) {
    return std::equal(
        a.begin(), a.end(), b.begin(), b.end(),
        [](const Record& one, const Record& two) { return bool{test::same_fields(one, two)}; });
}

bool same(const records& a, const records& b) {
    return same_records(a.vps, b.vps) && same_records(a.sps, b.sps) && same_records(a.pps, b.pps) &&
           same_records(a.slices, b.slices) && same_records(a.periods, b.periods) &&
           same_records(a.timings, b.timings) && same_records(a.active_sets, b.active_sets) &&
           a.names == b.names && a.copy == b.copy;
}

TEST(Threads, ReadTheSameStreamsAsOneThreadDoes) {
    std::vector<bytes> streams;
    std::vector<records> expected;
    for (const std::string& name : test::stream_names()) {
        streams.push_back(test::load_stream(name));
        expected.push_back(read_stream(streams.back()));
    }
    ASSERT_FALSE(streams.empty());

    std::atomic<unsigned int> ready{0};
    std::atomic<std::size_t> different{0};
    const auto read_all = [&](std::size_t first) {
        // All begin at once, each with another stream.
        ++ready;
        while (ready != thread_count) {
            std::this_thread::yield();
        }
        for (std::size_t i = 0; i < streams.size(); ++i) {
            const std::size_t stream = (first + i) % streams.size();
            if (!same(read_stream(streams[stream]), expected[stream])) {
                ++different;
            }
        }
    };
    std::vector<std::thread> threads;
    for (std::size_t i = 0; i < thread_count; ++i) {
        threads.emplace_back(read_all, i);
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(different, 0U);
}

}  // namespace
}  // namespace kovran
