#ifndef KOVRAN_TOOLS_INSPECT_INPUT_FILE_DESCRIPTOR_H
#define KOVRAN_TOOLS_INSPECT_INPUT_FILE_DESCRIPTOR_H

#include <cstddef>
#include <optional>
#include <string>

#include <sys/stat.h>

namespace kovran::inspect {

// An open file that this object closes, or one of the standard streams, which it leaves open.
// Failures are reported under `name`.
class file_descriptor {
public:
    [[nodiscard]] static file_descriptor standard_input();
    [[nodiscard]] static file_descriptor standard_output();
    [[nodiscard]] static file_descriptor open_to_read(const std::string& path);
    // Nothing where there is no file. Its contents stay until truncate().
    [[nodiscard]] static std::optional<file_descriptor> open_existing_to_write(
        const std::string& path);
    // A new file, whose failures are reported under another name. That it exists is one of them.
    [[nodiscard]] static file_descriptor create(const std::string& path, const std::string& name);

    file_descriptor(file_descriptor&& other) noexcept;
    file_descriptor(const file_descriptor&) = delete;
    file_descriptor& operator=(file_descriptor&&) = delete;
    file_descriptor& operator=(const file_descriptor&) = delete;
    ~file_descriptor();

    [[nodiscard]] int number() const { return number_; }
    [[nodiscard]] const std::string& name() const { return name_; }
    [[nodiscard]] struct stat status() const;
    [[nodiscard]] bool is_terminal() const;

    // At least one byte, or 0 at the end.
    [[nodiscard]] std::size_t read_some(unsigned char* bytes, std::size_t size) const;
    void write_all(const unsigned char* bytes, std::size_t size) const;
    // Drops what a regular file holds.
    void truncate() const;
    // Gives it the mode of another file and, as far as the system lets it, the owner.
    void adopt_rights(const struct stat& other) const;
    // Closes a file opened here, and tells of a write that only now turns out to have failed.
    void close();

private:
    file_descriptor(int number, std::string name, bool owned);

    int number_;
    std::string name_;
    bool owned_;
};

// The same regular file or disk, whatever the two are called.
[[nodiscard]] bool same_file(const file_descriptor& a, const file_descriptor& b);

}  // namespace kovran::inspect

#endif  // KOVRAN_TOOLS_INSPECT_INPUT_FILE_DESCRIPTOR_H
