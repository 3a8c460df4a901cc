#ifndef KOVRAN_TESTS_INSPECT_READINGS_H
#define KOVRAN_TESTS_INSPECT_READINGS_H

#include <nlohmann/json.hpp>

#include <string>
#include <vector>

namespace kovran::test {

// The streams of tests/streams, without their suffixes.
[[nodiscard]] const std::vector<std::string>& stream_names();

[[nodiscard]] std::string stream_path(const std::string& name);

// What an independent program reads in the stream: an array with an object for each NAL unit.
[[nodiscard]] nlohmann::json units_of_reading(const std::string& name);

}  // namespace kovran::test

#endif  // KOVRAN_TESTS_INSPECT_READINGS_H
