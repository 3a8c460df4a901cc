#ifndef KOVRAN_TOOLS_INSPECT_UNITS_LENGTH_PREFIXED_WALK_H
#define KOVRAN_TOOLS_INSPECT_UNITS_LENGTH_PREFIXED_WALK_H

#include <kovran/h265/h265_nal_reader.h>

#include "units/nal_walk.h"

#include <cstddef>
#include <cstdint>

namespace kovran::inspect {

class length_prefixed_walk final : public nal_walk {
public:
    length_prefixed_walk(input& stream, h2645_common_nalfmt format)
        : stream_(stream), reader_(format), prefix_size_(format) {}

protected:
    [[nodiscard]] bool take_next(nal_unit& unit) override;

private:
    void scan();
    [[nodiscard]] bool length_is_zero() const;
    [[nodiscard]] bool wants_more() const;
    void describe_bytes(nal_unit& unit) const;
    void describe_unit(nal_unit& unit);

    input& stream_;
    h265_nal_reader reader_;
    std::size_t prefix_size_;  // 1 to 4, as the formats are numbered
    std::size_t taken_ = 0;    // of the window, by the latest unit
    std::uint64_t index_ = 0;
    bool cannot_go_on_ = false;
};

}  // namespace kovran::inspect

#endif  // KOVRAN_TOOLS_INSPECT_UNITS_LENGTH_PREFIXED_WALK_H
