#ifndef KOVRAN_TOOLS_INSPECT_OUTPUT_OUTPUT_H
#define KOVRAN_TOOLS_INSPECT_OUTPUT_OUTPUT_H

#include "input/file_descriptor.h"

#include <cstddef>
#include <string_view>
#include <vector>

namespace kovran::inspect {

// Where results go, through a buffer. A write that fails is a failure, as late as in finish().
class output {
public:
    explicit output(file_descriptor file);
    output(const output&) = delete;
    output& operator=(const output&) = delete;
    // What was written before another failure still goes out.
    ~output();

    [[nodiscard]] const file_descriptor& file() const { return file_; }

    void write(const unsigned char* bytes, std::size_t size);
    void write(std::string_view text);
    void flush();
    // To be called last, as only this says that everything has arrived.
    void finish();

private:
    file_descriptor file_;
    std::vector<unsigned char> buffer_;
    std::size_t used_ = 0;
};

}  // namespace kovran::inspect

#endif  // KOVRAN_TOOLS_INSPECT_OUTPUT_OUTPUT_H
