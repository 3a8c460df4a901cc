// Stands in for the fuzzing engine: runs a target over inputs, each a file, or over all that
// fuzz/pack_corpus put into one file, whose name ends in .corpus. Fails where there is nothing to
// run.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <system_error>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

using bytes = std::vector<std::uint8_t>;

bool read_file(const std::filesystem::path& path, bytes& content) {
    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(path, error);
    if (error) {
        return false;
    }
    content.resize(size);
    std::ifstream file(path, std::ios::binary);
    file.read(reinterpret_cast<char*>(content.data()), static_cast<std::streamsize>(size));
    return file.good();
}

// Each input gets a buffer of its own, behind which the sanitizers notice any read.
bool replay_packed(const bytes& packed) {
    std::size_t inputs = 0;
    for (std::size_t place = 0; place != packed.size(); ++inputs) {
        if (packed.size() - place < 4) {
            return false;
        }
        std::size_t size = 0;
        for (const std::size_t size_end = place + 4; place != size_end; ++place) {
            size = size << 8 | packed[place];
        }
        if (packed.size() - place < size) {
            return false;
        }
        const std::uint8_t* const begin = packed.data() + place;
        const bytes input(begin, begin + size);
        LLVMFuzzerTestOneInput(input.data(), input.size());
        place += size;
    }
    std::printf("%zu inputs replayed\n", inputs);
    return inputs != 0;
}

}  // namespace

int main(int argc, char** argv) {
    for (int i = 1; i < argc; ++i) {
        const std::filesystem::path path = argv[i];
        bytes content;
        if (!read_file(path, content)) {
            std::fprintf(stderr, "%s cannot be read\n", argv[i]);
            return 1;
        }
        if (path.extension() != ".corpus") {
            LLVMFuzzerTestOneInput(content.data(), content.size());
        } else if (!replay_packed(content)) {
            std::fprintf(stderr, "%s is empty or cut off\n", argv[i]);
            return 1;
        }
    }
    return argc > 1 ? 0 : 2;
}
