#ifndef KOVRAN_TOOLS_INSPECT_OUTPUT_SPOOL_H
#define KOVRAN_TOOLS_INSPECT_OUTPUT_SPOOL_H

#include "output/output.h"

#include <cstdio>
#include <memory>
#include <string>
#include <string_view>

namespace kovran::inspect {

// Text that is to be written later: as it may be long, most of it is in a temporary file without a
// name.
class spool {
public:
    void add(std::string_view text);
    [[nodiscard]] bool empty() const { return !file_ && latest_.empty(); }
    void write_to(output& lines);

private:
    struct closer {
        void operator()(std::FILE* file) const { static_cast<void>(std::fclose(file)); }
    };

    void write_latest();

    std::unique_ptr<std::FILE, closer> file_;  // none for a short text
    std::string latest_;                       // follows what the file has
};

}  // namespace kovran::inspect

#endif  // KOVRAN_TOOLS_INSPECT_OUTPUT_SPOOL_H
