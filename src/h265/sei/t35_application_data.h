#ifndef KOVRAN_SRC_H265_SEI_T35_APPLICATION_DATA_H
#define KOVRAN_SRC_H265_SEI_T35_APPLICATION_DATA_H

#include <kovran/h2645_common/h2645_common_bitreader.h>
#include <kovran/h265/sei/h265_nal_sei_user_data_registered_itu_t_t35.h>
#include <kovran/h265/sei/h265_t35_user_data.h>

#include <cstddef>
#include <optional>
#include <vector>

namespace kovran {

// The bits behind the codes of user data; nothing when it is of another kind.
[[nodiscard]] inline std::optional<h2645_common_bitreader> t35_application_data(
    const h265_nal_sei_user_data_registered_itu_t_t35& user_data, h265_t35_kind kind) {
    h265_t35_user_data codes;
    if (!codes.parse(user_data) || codes.kind != kind) {
        return std::nullopt;
    }
    const std::vector<unsigned char>& bytes = user_data.itu_t_t35_payload_byte;
    return h2645_common_bitreader(bytes.data() + codes.data_begin, bytes.data() + bytes.size());
}

// Whether so many bits more can be read before the data ends; 0: whether it has not ended yet.
[[nodiscard]] inline bool t35_data_holds(const h2645_common_bitreader& reader, std::size_t bits) {
    const auto size = static_cast<std::size_t>(reader.end - reader.start);
    return reader.bit_position() + bits <= 8 * size;
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_SEI_T35_APPLICATION_DATA_H
