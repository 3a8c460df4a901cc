#include "elements/sei_meaning.h"

namespace kovran::inspect {

std::vector<std::string> meaning_of(const h265_nal_sei_message& /*message*/) {
    return {};
}

}  // namespace kovran::inspect
