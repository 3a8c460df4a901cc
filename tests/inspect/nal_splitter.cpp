#include "nal_splitter.h"

#include <stdexcept>

namespace kovran::test {

std::vector<std::string> split_annex_b(std::string_view stream) {
    std::vector<std::string> units;
    std::size_t zeros = 0;
    bool in_unit = false;
    for (const char byte : stream) {
        if (byte == 1 && zeros >= 2) {
            units.emplace_back();
            in_unit = true;
            zeros = 0;
            continue;
        }
        if (byte == 0) {
            ++zeros;
            continue;
        }
        if (!in_unit) {
            throw std::runtime_error("bytes before the first start code");
        }
        units.back().append(zeros, '\0');
        units.back() += byte;
        zeros = 0;
    }
    return units;
}

std::vector<std::string> split_length_prefixed(std::string_view stream, std::size_t prefix_size) {
    std::vector<std::string> units;
    while (!stream.empty()) {
        std::size_t length = 0;
        for (std::size_t i = 0; i < prefix_size; ++i) {
            length = length * 256 + static_cast<unsigned char>(stream.at(i));
        }
        stream.remove_prefix(prefix_size);
        if (length > stream.size()) {
            throw std::runtime_error("a NAL unit that is cut short");
        }
        units.emplace_back(stream.substr(0, length));
        stream.remove_prefix(length);
    }
    return units;
}

}  // namespace kovran::test
