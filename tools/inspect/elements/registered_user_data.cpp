#include "elements/registered_user_data.h"
namespace kovran::inspect {
std::vector<std::string> meaning_of(
    const h265_nal_sei_user_data_registered_itu_t_t35& /*user_data*/) {
    return {};
}
}  // namespace kovran::inspect
