#include "process/failure.h"

#include <system_error>

namespace kovran::inspect {

failure system_failure(const std::string& name, int error_number) {
    return failure(name + ": " + std::generic_category().message(error_number));
}

}  // namespace kovran::inspect
