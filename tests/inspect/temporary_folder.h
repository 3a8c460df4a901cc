#ifndef KOVRAN_TESTS_INSPECT_TEMPORARY_FOLDER_H
#define KOVRAN_TESTS_INSPECT_TEMPORARY_FOLDER_H

#include <string>
#include <string_view>

namespace kovran::test {

// A folder of the test's own, removed with all that is in it.
class temporary_folder {
public:
    temporary_folder();
    temporary_folder(const temporary_folder&) = delete;
    temporary_folder& operator=(const temporary_folder&) = delete;
    ~temporary_folder();

    [[nodiscard]] const std::string& path() const { return path_; }
    // The path of a file in the folder, which need not be there.
    [[nodiscard]] std::string file(const std::string& name) const { return path_ + '/' + name; }
    // The path of a file with these contents.
    [[nodiscard]] std::string write(const std::string& name, std::string_view contents) const;

private:
    std::string path_;
};

[[nodiscard]] std::string read_file(const std::string& path);

}  // namespace kovran::test

#endif  // KOVRAN_TESTS_INSPECT_TEMPORARY_FOLDER_H
