#ifndef KOVRAN_H265_SEI_H265_UNREGISTERED_USER_DATA_H
#define KOVRAN_H265_SEI_H265_UNREGISTERED_USER_DATA_H

#include <kovran/export.h>
#include <kovran/h265/sei/h265_nal_sei_user_data_unregistered.h>

#include <cstdint>
#include <optional>
#include <string_view>

namespace kovran {

// Whose user_data_unregistered() a UUID says it is, for display: "x265", "Kvazaar", "MISP time in
// microseconds", "MISP time in nanoseconds"; "" for the others.
[[nodiscard]] KOVRAN_API const char* h265_user_data_name(
    const h265_nal_sei_user_data_unregistered& user_data);

// The bytes behind the UUID as the text that they are, whoever wrote them: encoders tell their
// version and options in it. Zero bytes at the end are left out. Empty when there is any other byte
// that is neither printable ASCII nor white space. The text is the record's.
[[nodiscard]] KOVRAN_API std::string_view h265_user_data_text(
    const h265_nal_sei_user_data_unregistered& user_data);

// The precision time stamp of MISB ST 0604, in microseconds or nanoseconds since 1970 by the UUID.
// Nothing for another UUID, or when the time is cut off.
[[nodiscard]] KOVRAN_API std::optional<std::uint64_t> h265_misp_time(
    const h265_nal_sei_user_data_unregistered& user_data);

}  // namespace kovran

#endif  // KOVRAN_H265_SEI_H265_UNREGISTERED_USER_DATA_H
