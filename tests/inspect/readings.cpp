#include "readings.h"

#include "temporary_folder.h"

#include <algorithm>
#include <filesystem>
#include <stdexcept>

namespace kovran::test {
namespace {

std::vector<std::string> find_streams() {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(KOVRAN_TEST_STREAMS)) {
        if (entry.path().extension() == ".hevc") {
            names.push_back(entry.path().stem().string());
        }
    }
    if (names.empty()) {
        throw std::runtime_error("no streams in " KOVRAN_TEST_STREAMS);
    }
    std::sort(names.begin(), names.end());
    return names;
}

}  // namespace

const std::vector<std::string>& stream_names() {
    static const std::vector<std::string> names = find_streams();
    return names;
}

std::string stream_path(const std::string& name) {
    return std::string(KOVRAN_TEST_STREAMS "/") + name + ".hevc";
}

nlohmann::json units_of_reading(const std::string& name) {
    const std::string path = std::string(KOVRAN_TEST_STREAMS "/") + name + ".json";
    return nlohmann::json::parse(read_file(path)).at("units");
}

}  // namespace kovran::test
