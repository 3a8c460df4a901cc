#ifndef KOVRAN_TOOLS_INSPECT_UNITS_ANNEX_B_WALK_H
#define KOVRAN_TOOLS_INSPECT_UNITS_ANNEX_B_WALK_H

#include <kovran/h265/h265_nal_reader.h>

#include "units/nal_walk.h"
#include "units/unit_before_zeros.h"

#include <cstddef>
#include <cstdint>

namespace kovran::inspect {

class annex_b_walk final : public nal_walk {
public:
    // So many zero bytes in a row are taken for padding, which is not held in the window.
    static constexpr std::size_t usual_padding = std::size_t{1} << 20;

    explicit annex_b_walk(input& stream, std::size_t padding = usual_padding)
        : stream_(stream), padding_(padding) {}

protected:
    [[nodiscard]] bool take_next(nal_unit& unit) override;

private:
    enum class stage { leading_bytes, unit, last_bytes, end };

    [[nodiscard]] bool find_start_code_at_hand();
    void take_leading_bytes(nal_unit& unit);
    void take_unit(nal_unit& unit);
    void take_last_bytes(nal_unit& unit);
    void stand_at_start_code(std::uint64_t zeros_before);
    [[nodiscard]] bool padding_follows();
    void take_out_of_window(const unsigned char* last);
    [[nodiscard]] unsigned char* start_code_without_header() const;

    input& stream_;
    std::size_t padding_;
    h265_nal_reader reader_{nalfmt_annex_b};
    stage stage_ = stage::leading_bytes;
    std::uint64_t searched_ = 0;  // the place up to which there is no start code

    // In stage::unit, what is known of the unit so far.
    std::uint64_t index_ = 0;
    std::uint64_t offset_ = 0;
    std::uint64_t prefix_ = 0;
    h265_nal header_;
    unit_before_zeros before_padding_;  // empty before there is any
    std::uint64_t next_look_ = 0;       // for padding, once the window has this size
};

}  // namespace kovran::inspect

#endif  // KOVRAN_TOOLS_INSPECT_UNITS_ANNEX_B_WALK_H
