#include <kovran/kovran.h>

#include <cstdio>
#include <fstream>
#include <vector>

namespace {

// Prints the elements with values that H.265 does not allow, and why reading stopped, if it did.
template <class Record, class... Stores>
void explain(const char* name, Record& record, kovran::h2645_common_bitreader bits,
             Stores&... stores) {
    kovran::h265_trace trace;
    kovran::h265_fault fault;
    record.parse_standard(bits, stores..., trace, &fault);
    std::printf("%s: %zu elements, %s\n", name, trace.elements.size(), to_string(fault).c_str());
    for (const kovran::h265_traced_element& element : trace.elements) {
        if (element.out_of_range) {
            std::printf("  bit %zu: %s is %lld\n", element.first_bit,
                        path_of(trace, element).c_str(), static_cast<long long>(element.value));
        }
    }
}

}  // namespace

// Explains the parameter sets of an Annex B stream.
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

    kovran::h2645_common_base_store<kovran::h265_nal_vps> vps;
    kovran::h2645_common_base_store<kovran::h265_nal_sps> sps;
    kovran::h265_nal_pps pps;
    std::vector<unsigned char> rbsp(stream.size());  // no unit is longer
    kovran::h265_nal_reader reader(kovran::nalfmt_annex_b);
    for (unsigned char* next = stream.data(); next != end; next = reader.cursor) {
        reader.scan(next, end);
        if (reader.need_more_data) {
            break;
        }
        if (!reader.found || reader.nal.nuh_layer_id != 0) {
            continue;
        }
        const unsigned char* const rbsp_end =
            rbsp.data() + reader.block_decode(rbsp.data(), rbsp.size());
        const kovran::h2645_common_bitreader bits(rbsp.data(), rbsp_end);
        switch (reader.nal.nal_unit_type) {
            case kovran::VPS_NUT:
                explain("VPS", vps[0], bits);
                break;
            case kovran::SPS_NUT:
                explain("SPS", sps[0], bits, vps);
                break;
            case kovran::PPS_NUT:
                explain("PPS", pps, bits, sps);
                break;
            default:
                break;
        }
    }
}
