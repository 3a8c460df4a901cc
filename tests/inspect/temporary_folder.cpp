#include "temporary_folder.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <system_error>

namespace kovran::test {

temporary_folder::temporary_folder()
    : path_((std::filesystem::temp_directory_path() / "kovran-test-").string()) {
    path_.append(6, 'X');  // mkdtemp() puts a name of its own in their place
    if (::mkdtemp(path_.data()) == nullptr) {
        throw std::runtime_error("no temporary folder");
    }
}

temporary_folder::~temporary_folder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

std::string temporary_folder::write(const std::string& name, std::string_view contents) const {
    std::string path = file(name);
    std::ofstream(path, std::ios::binary)
        .write(contents.data(), static_cast<std::streamsize>(contents.size()));
    return path;
}

std::string read_file(const std::string& path) {
    std::ifstream stream(path, std::ios::binary);
    if (!stream) {
        throw std::runtime_error("cannot read " + path);
    }
    std::ostringstream contents;
    contents << stream.rdbuf();
    return contents.str();
}

}  // namespace kovran::test
