#include <kovran/kovran.h>

#include <cstddef>
#include <cstdio>
#include <fstream>
#include <utility>
#include <variant>
#include <vector>

namespace {

// What this program keeps of a stream: the parameter sets that messages are read with.
struct stream_state {
    kovran::h2645_common_base_store<kovran::h265_nal_vps> vps;
    kovran::h2645_common_base_store<kovran::h265_nal_sps> sps;
    kovran::h265_nal_sei_message message;  // keeps its memory
};

// One function for each record that is of interest, and one for all others.
struct print_message {
    void operator()(const kovran::h265_nal_sei_mastering_display_colour_volume& volume) const {
        const auto display = kovran::h265_mastering_display_of(volume);
        std::printf(": %g to %g candela per square metre", display.min_luminance,
                    display.max_luminance);
    }
    void operator()(const kovran::h265_nal_sei_content_light_level_info& level) const {
        std::printf(": at most %u candela per square metre", level.max_content_light_level);
    }
    void operator()(const kovran::h265_nal_sei_decoded_picture_hash& hash) const {
        std::printf(": %s of luma %s", kovran::h265_nal_sei_hash_type_to_str(hash.hash_type),
                    hash.plane_hash(0).c_str());
    }
    template <class Payload>
    void operator()(const Payload& /*payload*/) const {}
};

void read_messages(stream_state& state, kovran::h265_nal_unit_type type, unsigned char* begin,
                   unsigned char* end) {
    kovran::h265_nal_sei_reader messages(begin, end, type);
    while (messages.next_message()) {
        if (!state.message.parse_standard(messages, state.vps, state.sps)) {
            std::printf("message of type %u, which cannot be read\n", messages.payload_type);
            continue;
        }
        if (const auto* const period =
                std::get_if<kovran::h265_nal_sei_buffering_period>(&state.message.payload);
            period != nullptr) {
            state.sps.active_id = period->bp_seq_parameter_set_id;
        }
        std::printf("%s", kovran::h265_nal_sei_payload_name(messages.payload_type));
        std::visit(print_message{}, state.message.payload);
        std::printf("\n");
    }
}

// The first SPS is the active one until a buffering period names another. A program that reads
// slices learns it from them.
void read_unit(stream_state& state, kovran::h265_nal_unit_type type, unsigned char* begin,
               unsigned char* end) {
    kovran::h2645_common_bitreader bits(begin, end);
    switch (type) {
        case kovran::VPS_NUT: {
            kovran::h265_nal_vps vps;
            if (vps.parse_standard(bits)) {
                state.vps[vps.vps_video_parameter_set_id] = std::move(vps);
            }
            break;
        }
        case kovran::SPS_NUT: {
            kovran::h265_nal_sps sps;
            if (sps.parse_standard(bits, state.vps)) {
                const unsigned int id = sps.sps_seq_parameter_set_id;
                state.sps[id] = std::move(sps);
                if (state.sps.active_id == state.sps.no_id) {
                    state.sps.active_id = id;
                }
            }
            break;
        }
        case kovran::PREFIX_SEI_NUT:
        case kovran::SUFFIX_SEI_NUT:
            read_messages(state, type, begin, end);
            break;
        default:
            break;
    }
}

}  // namespace

// Lists the SEI messages of an Annex B stream.
int main(int argc, char** argv) {
    if (argc != 2) {
        return 2;
    }
    std::ifstream file(argv[1], std::ios::binary);
    std::vector<unsigned char> stream;
    char block[65536];
    while (file.read(block, sizeof block) || file.gcount() > 0) {
        stream.insert(stream.end(), block, block + file.gcount());
    }
    unsigned char* const end = stream.data() + stream.size();

    stream_state state;
    std::vector<unsigned char> rbsp(stream.size());  // no unit is longer
    kovran::h265_nal_reader reader(kovran::nalfmt_annex_b);
    for (unsigned char* next = stream.data(); next != end; next = reader.cursor) {
        reader.scan(next, end);
        if (reader.need_more_data) {
            break;
        }
        if (reader.found && reader.nal.nuh_layer_id == 0) {
            const std::size_t size = reader.block_decode(rbsp.data(), rbsp.size());
            read_unit(state, reader.nal.nal_unit_type, rbsp.data(), rbsp.data() + size);
        }
    }
}
