#ifndef KOVRAN_TOOLS_INSPECT_OUTPUT_SPOOL_H
#define KOVRAN_TOOLS_INSPECT_OUTPUT_SPOOL_H

#include "output/output.h"

#include <cstdio>
#include <memory>
#include <string_view>

namespace kovran::inspect {

// Text that is to be written later, in a temporary file without a name: it may be long.
class spool {
public:
    void add(std::string_view text);
    void write_to(output& lines);

private:
    struct closer {
        void operator()(std::FILE* file) const { static_cast<void>(std::fclose(file)); }
    };

    std::unique_ptr<std::FILE, closer> file_;  // none before there is text
};

}  // namespace kovran::inspect

#endif  // KOVRAN_TOOLS_INSPECT_OUTPUT_SPOOL_H
