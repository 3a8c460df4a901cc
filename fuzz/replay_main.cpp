// Stands in for the fuzzing engine: runs a target over files, and over all files of folders.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

int replayed = 0;

void replay(const std::filesystem::path& path) {
    if (std::filesystem::is_directory(path)) {
        for (const auto& entry : std::filesystem::directory_iterator(path)) {
            replay(entry.path());
        }
        return;
    }
    std::ifstream file(path, std::ios::binary);
    const std::vector<std::uint8_t> input(std::istreambuf_iterator<char>(file), {});
    LLVMFuzzerTestOneInput(input.data(), input.size());
    ++replayed;
}

}  // namespace

int main(int argc, char** argv) {
    for (int i = 1; i < argc; ++i) {
        replay(argv[i]);
    }
    std::printf("%d inputs replayed\n", replayed);
    return replayed == 0 ? 1 : 0;
}
