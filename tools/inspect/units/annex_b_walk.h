#ifndef KOVRAN_TOOLS_INSPECT_UNITS_ANNEX_B_WALK_H
#define KOVRAN_TOOLS_INSPECT_UNITS_ANNEX_B_WALK_H

#include <kovran/h265/h265_nal_reader.h>

#include "units/nal_walk.h"

#include <cstdint>

namespace kovran::inspect {

class annex_b_walk final : public nal_walk {
public:
    explicit annex_b_walk(input& stream) : stream_(stream) {}

protected:
    [[nodiscard]] bool take_next(nal_unit& unit) override;

private:
    enum class stage { leading_bytes, unit, last_bytes, end };

    [[nodiscard]] bool find_start_code_at_hand();
    void take_leading_bytes(nal_unit& unit);
    void take_unit(nal_unit& unit);
    void take_last_bytes(nal_unit& unit);
    void stand_at_start_code(const unsigned char* zero_bytes);
    [[nodiscard]] unsigned char* start_code_without_header() const;

    input& stream_;
    h265_nal_reader reader_{nalfmt_annex_b};
    stage stage_ = stage::leading_bytes;
    std::uint64_t searched_ = 0;  // the place up to which there is no start code

    // In stage::unit, what is known of the unit so far.
    std::uint64_t index_ = 0;
    std::uint64_t offset_ = 0;
    std::uint64_t prefix_ = 0;
    h265_nal header_;
};

}  // namespace kovran::inspect

#endif  // KOVRAN_TOOLS_INSPECT_UNITS_ANNEX_B_WALK_H
