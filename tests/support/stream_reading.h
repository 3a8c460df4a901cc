#ifndef KOVRAN_TESTS_SUPPORT_STREAM_READING_H
#define KOVRAN_TESTS_SUPPORT_STREAM_READING_H

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <ios>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace kovran::test {

// What an independent reader made of one NAL unit.
struct unit_reading {
    std::size_t offset = 0;  // of the first header byte
    std::size_t prefix = 0;  // zero bytes and start code before it
    std::size_t size = 0;    // with the header, without the zero bytes after the unit
    unsigned int nal_unit_type = 0;
    unsigned int nuh_layer_id = 0;
    unsigned int nuh_temporal_id_plus1 = 0;
    nlohmann::json elements;  // [name, value, bit position, width], as streams/README.md says
};

struct stream_reading {
    std::vector<unsigned char> bytes;
    std::vector<unit_reading> units;  // in the order of the file
};

inline std::filesystem::path stream_path(const std::string& name, const char* extension) {
    return std::filesystem::path(KOVRAN_TEST_STREAMS) / (name + extension);
}

// The names of all streams, in alphabetical order. There are some: tests of each of none would
// pass.
inline std::vector<std::string> stream_names() {
    std::vector<std::string> names;
    for (const auto& file : std::filesystem::directory_iterator(KOVRAN_TEST_STREAMS)) {
        if (file.path().extension() == ".hevc") {
            names.push_back(file.path().stem().string());
        }
    }
    if (names.empty()) {
        throw std::runtime_error("no streams in " KOVRAN_TEST_STREAMS);
    }
    std::sort(names.begin(), names.end());
    return names;
}

inline std::vector<unsigned char> load_stream(const std::string& name) {
    const std::filesystem::path path = stream_path(name, ".hevc");
    std::vector<unsigned char> bytes(std::filesystem::file_size(path));
    std::ifstream file(path, std::ios::binary);
    file.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    if (!file) {
        throw std::runtime_error("cannot read " + path.string());
    }
    return bytes;
}

inline stream_reading load_stream_reading(const std::string& name) {
    stream_reading reading;
    reading.bytes = load_stream(name);

    std::ifstream file(stream_path(name, ".json"));
    nlohmann::json document = nlohmann::json::parse(file);
    for (nlohmann::json& unit : document.at("units")) {
        reading.units.push_back({unit.at("offset"), unit.at("prefix"), unit.at("size"),
                                 unit.at("nal_unit_type"), unit.at("nuh_layer_id"),
                                 unit.at("nuh_temporal_id_plus1"), std::move(unit["elements"])});
    }
    return reading;
}

}  // namespace kovran::test

#endif  // KOVRAN_TESTS_SUPPORT_STREAM_READING_H
