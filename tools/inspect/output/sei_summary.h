#ifndef KOVRAN_TOOLS_INSPECT_OUTPUT_SEI_SUMMARY_H
#define KOVRAN_TOOLS_INSPECT_OUTPUT_SEI_SUMMARY_H

#include <kovran/h265/sei/h265_nal_sei_message.h>

#include "units/nal_unit.h"

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace kovran::inspect {

// What the SEI messages of a stream, and the units that carry metadata in their place, say about
// all of it. Of values that may change the first one is kept.
class sei_summary {
public:
    void add(const nal_unit& unit);
    void add(const h265_nal_sei_message& message);

    // Names and texts of the lines that the stream has.
    [[nodiscard]] std::vector<std::pair<std::string, std::string>> lines() const;

private:
    template <class Payload>
    void add_payload(const Payload& /*payload*/) {}
    void add_payload(const h265_nal_sei_user_data_registered_itu_t_t35& user_data);
    void add_payload(const h265_nal_sei_user_data_unregistered& user_data);
    void add_payload(const h265_nal_sei_time_code& code);
    void add_payload(const h265_nal_sei_alternative_transfer_characteristics& transfer);

    // Each once, in words; empty when there is none.
    std::string mastering_display_;
    std::string light_level_;
    std::string alternative_transfer_;
    std::string first_time_code_;
    std::string encoder_;

    std::uint64_t hdr10_plus_messages_ = 0;
    std::uint64_t dolby_vision_metadata_ = 0;
    std::uint64_t dolby_vision_enhancement_ = 0;
    std::uint64_t caption_messages_ = 0;
    std::uint64_t time_codes_ = 0;
};

}  // namespace kovran::inspect

#endif  // KOVRAN_TOOLS_INSPECT_OUTPUT_SEI_SUMMARY_H
