#ifndef KOVRAN_TOOLS_INSPECT_OUTPUT_STREAM_SUMMARY_H
#define KOVRAN_TOOLS_INSPECT_OUTPUT_STREAM_SUMMARY_H

#include <kovran/h265/h265_nal_sps.h>
#include <kovran/h265/h265_nal_vps.h>
#include <kovran/h265/h265_slice_segment_header.h>

#include "elements/unit_reader.h"
#include "units/nal_unit.h"
#include "units/type_name.h"

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <string>

namespace kovran::inspect {

// What is told of a whole stream, gathered unit by unit.
class stream_summary : public trace_sink {
public:
    explicit stream_summary(rule_set rules) : rules_(rules) {}

    // To be called for each unit after it was read with this object as the sink.
    void add(const nal_unit& unit, const unit_record& record);

    // One screen of it.
    [[nodiscard]] std::string text() const;

    [[nodiscard]] bool wants_elements() const override { return false; }
    void begin_structure(const h2645_common_element_name&) override {}
    void end_structure() override {}
    void read(const shown_element&) override {}
    void begin_message(const h265_nal_sei_reader& message) override;
    void end_message() override {}

private:
    void add_slice(const nal_unit& unit, const h265_slice_segment_header& slice);

    rule_set rules_;
    std::array<std::uint64_t, type_count> units_{};
    std::uint64_t faults_ = 0;
    std::uint64_t higher_layer_units_ = 0;
    std::map<unsigned int, h265_nal_vps> vps_;  // by identifier, the first that could be read
    std::optional<h265_nal_sps> sps_;           // likewise, of any identifier
    std::map<std::string, std::uint64_t> slices_;
    // Of each payload type that the standard names, and of the first ones that it does not.
    std::map<std::string, std::uint64_t> messages_;
    std::size_t unnamed_types_ = 0;
    std::uint64_t other_messages_ = 0;

    std::uint64_t pictures_ = 0;
    std::uint64_t irap_pictures_ = 0;
    std::uint64_t last_irap_ = 0;  // number of the picture
    std::uint64_t shortest_irap_distance_ = 0;
    std::uint64_t longest_irap_distance_ = 0;
    std::string first_iraps_;
};

}  // namespace kovran::inspect

#endif  // KOVRAN_TOOLS_INSPECT_OUTPUT_STREAM_SUMMARY_H
