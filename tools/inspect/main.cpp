#include "output/output.h"
#include "process/address_space.h"
#include "process/bus_error.h"
#include "process/exit_status.h"
#include "process/failure.h"
#include "process/file_size_limit.h"
#include "process/message.h"
#include "process/printable.h"
#include "process/standard_streams.h"
#include "verbs/command_line.h"
#include "verbs/copy.h"
#include "verbs/show_differences.h"
#include "verbs/show_info.h"
#include "verbs/show_nals.h"
#include "verbs/show_syntax.h"

#include <exception>
#include <new>
#include <variant>

namespace kovran::inspect {
namespace {

struct runner {
    exit_status operator()(const text_to_show& shown) const {
        output out(file_descriptor::standard_output());
        out.write(shown.text);
        out.finish();
        return status_read;
    }
    exit_status operator()(const nals_options& options) const { return show_nals(options); }
    exit_status operator()(const copy_options& options) const { return copy(options); }
    exit_status operator()(const syntax_options& options) const { return show_syntax(options); }
    exit_status operator()(const info_options& options) const { return show_info(options); }
    exit_status operator()(const differences_options& options) const {
        return show_differences(options);
    }
};

void write_reason(const std::exception& reason) {
    write_message("kovran: ");
    write_message(printable(reason.what()));
    write_message("\n");
}

exit_status run(int argc, const char* const* argv) noexcept {
    try {
        return std::visit(runner{}, parse_command_line(argc, argv));
    } catch (const std::bad_alloc&) {
        write_message("kovran: not enough memory\n");
    } catch (const wrong_arguments& reason) {
        write_reason(reason);
        write_message("Run kovran --help for more information.\n");
    } catch (const std::exception& reason) {
        write_reason(reason);
    }
    return status_failed;
}

}  // namespace
}  // namespace kovran::inspect

int main(int argc, char** argv) {
    kovran::inspect::reserve_standard_streams();
    kovran::inspect::survive_bus_errors();
    kovran::inspect::report_file_size_limit();
    kovran::inspect::cap_address_space();
    return kovran::inspect::run(argc, argv);
}
