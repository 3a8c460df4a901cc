#include <kovran/kovran.h>

#include <cstdio>
#include <fstream>
#include <vector>

// Lists the NAL units of an Annex B stream: offset and type.
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

    kovran::h265_nal_reader reader(kovran::nalfmt_annex_b);
    for (unsigned char* next = stream.data(); next != end; next = reader.cursor) {
        reader.scan(next, end);
        if (reader.need_more_data) {
            break;
        }
        if (reader.found) {
            std::printf("%8td  %s\n", reader.nal_begin - stream.data(),
                        kovran::h265_nal_unit_type_to_str(reader.nal.nal_unit_type));
        }
    }
}
