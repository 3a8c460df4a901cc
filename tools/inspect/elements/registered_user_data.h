#ifndef KOVRAN_TOOLS_INSPECT_ELEMENTS_REGISTERED_USER_DATA_H
#define KOVRAN_TOOLS_INSPECT_ELEMENTS_REGISTERED_USER_DATA_H

#include <kovran/h265/sei/h265_nal_sei_user_data_registered_itu_t_t35.h>

#include <string>
#include <vector>

namespace kovran::inspect {

// Whose user data it is, and what it says: captions, picture formats, dynamic metadata.
[[nodiscard]] std::vector<std::string> meaning_of(
    const h265_nal_sei_user_data_registered_itu_t_t35& user_data);

}  // namespace kovran::inspect

#endif  // KOVRAN_TOOLS_INSPECT_ELEMENTS_REGISTERED_USER_DATA_H
