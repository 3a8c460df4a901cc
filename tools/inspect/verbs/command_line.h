#ifndef KOVRAN_TOOLS_INSPECT_VERBS_COMMAND_LINE_H
#define KOVRAN_TOOLS_INSPECT_VERBS_COMMAND_LINE_H

#include "verbs/copy.h"
#include "verbs/show_differences.h"
#include "verbs/show_info.h"
#include "verbs/show_nals.h"
#include "verbs/show_syntax.h"

#include <string>
#include <variant>

namespace kovran::inspect {

// What --help and --version ask for.
struct text_to_show {
    std::string text;
};

using command = std::variant<text_to_show, nals_options, copy_options, syntax_options, info_options,
                             differences_options>;

// Throws wrong_arguments.
[[nodiscard]] command parse_command_line(int argc, const char* const* argv);

}  // namespace kovran::inspect

#endif  // KOVRAN_TOOLS_INSPECT_VERBS_COMMAND_LINE_H
