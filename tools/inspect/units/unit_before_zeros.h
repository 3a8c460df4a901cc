#ifndef KOVRAN_TOOLS_INSPECT_UNITS_UNIT_BEFORE_ZEROS_H
#define KOVRAN_TOOLS_INSPECT_UNITS_UNIT_BEFORE_ZEROS_H

#include <cstddef>
#include <cstdint>
#include <vector>

namespace kovran::inspect {

// What is known of a NAL unit of Annex B that many zero bytes follow. They belong to it only if
// another byte comes before a start code, and until then are counted, not kept.
class unit_before_zeros {
public:
    static constexpr std::size_t largest = std::size_t{1} << 30;

    // The next bytes of the stream; at first those from the unit's header on. False when the unit
    // becomes too large.
    [[nodiscard]] bool add(const unsigned char* first, const unsigned char* last);
    void add_zeros(std::uint64_t count) { zeros_behind_ += count; }

    [[nodiscard]] bool is_empty() const { return bytes_.empty(); }
    // The unit without the zero bytes behind it.
    [[nodiscard]] unsigned char* begin() { return bytes_.data(); }
    [[nodiscard]] std::size_t size() const { return bytes_.size(); }
    [[nodiscard]] std::uint64_t zeros_behind() const { return zeros_behind_; }

private:
    std::vector<unsigned char> bytes_;
    std::uint64_t zeros_behind_ = 0;
};

}  // namespace kovran::inspect

#endif  // KOVRAN_TOOLS_INSPECT_UNITS_UNIT_BEFORE_ZEROS_H
