#include <kovran/kovran.h>

#include <cstddef>
#include <cstdio>
#include <fstream>
#include <utility>
#include <vector>

namespace {

// What this program keeps of a stream: its parameter sets.
struct stream_state {
    kovran::h2645_common_base_store<kovran::h265_nal_vps> vps;
    kovran::h2645_common_base_store<kovran::h265_nal_sps> sps;
    kovran::h2645_common_base_store<kovran::h265_nal_pps> pps;
};

// Parses into a fresh record and stores it only on success: a broken repetition of a parameter set
// does not replace the good one.
void read_unit(stream_state& state, const kovran::h265_nal& nal,
               kovran::h2645_common_bitreader bits) {
    switch (nal.nal_unit_type) {
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
                state.sps[sps.sps_seq_parameter_set_id] = std::move(sps);
            }
            break;
        }
        case kovran::PPS_NUT: {
            kovran::h265_nal_pps pps;
            if (pps.parse_standard(bits, state.sps)) {
                state.pps[pps.pps_pic_parameter_set_id] = std::move(pps);
            }
            break;
        }
        default:
            break;
    }
    if (nal.nal_unit_type > kovran::RSV_VCL31) {
        return;
    }
    kovran::h265_slice_segment_header slice;
    if (slice.parse_standard(bits, state.pps, state.sps, state.vps, nal.nal_unit_type) &&
        slice.first_slice_segment_in_pic_flag) {
        std::printf("%s slice, order count %u: %s\n", slice.slice_type_to_str(),
                    slice.slice_pic_order_cnt_lsb,
                    kovran::h265_nal_unit_type_to_str(nal.nal_unit_type));
    }
}

}  // namespace

// Lists the pictures of an Annex B stream.
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
            read_unit(state, reader.nal, {rbsp.data(), rbsp.data() + size});
        }
    }
}
