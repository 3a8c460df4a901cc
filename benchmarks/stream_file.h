#ifndef KOVRAN_BENCHMARKS_STREAM_FILE_H
#define KOVRAN_BENCHMARKS_STREAM_FILE_H

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <string>

#include "inputs.h"
#include "require.h"

namespace kovran::benchmarks {

// One of the streams that make_inputs makes: "hi", "lo" or "rich"; of a longer one the beginning.
inline bytes stream_file(const std::string& name, std::size_t longest = ~std::size_t{0}) {
    const std::filesystem::path path =
        std::filesystem::path(KOVRAN_BENCHMARK_INPUTS) / (name + ".hevc");
    std::ifstream file(path, std::ios::binary);
    require(file.is_open(), path.string() + " is not there; benchmarks/make_inputs makes it");
    bytes stream(std::min<std::size_t>(std::filesystem::file_size(path), longest));
    file.read(reinterpret_cast<char*>(stream.data()), static_cast<std::streamsize>(stream.size()));
    require(file.good(), path.string() + " cannot be read");
    return stream;
}

}  // namespace kovran::benchmarks

#endif  // KOVRAN_BENCHMARKS_STREAM_FILE_H
