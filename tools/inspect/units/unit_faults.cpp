#include "units/unit_faults.h"

#include "units/forbidden_sequence.h"

#include <fmt/format.h>

namespace kovran::inspect {
namespace {

std::string and_more(std::uint64_t count) {
    return count == 1 ? std::string{} : fmt::format(" (and {} more)", count - 1);
}

bool is_passed_over_start_code(const unsigned char* sequence, const unsigned char* last) {
    constexpr unsigned int forbidden_zero_bit = 0x80;
    return sequence[2] == 1 && last - sequence > 3 && (sequence[3] & forbidden_zero_bit) != 0;
}

}  // namespace

void add_unit_faults(nal_unit& unit, h2645_common_nalfmt format) {
    if (unit.header.nuh_temporal_id_plus1 == 0) {
        unit.faults.emplace_back("nuh_temporal_id_plus1 is 0");
    }
    const unsigned char* const first = unit.bytes;
    const unsigned char* const last = first + unit.size;
    const auto place_of = [&](const unsigned char* byte) {
        return unit.offset + static_cast<std::uint64_t>(byte - first);
    };
    std::uint64_t passed_over = 0;
    std::uint64_t first_passed_over = 0;
    std::uint64_t sequences = 0;
    const unsigned char* first_sequence = nullptr;
    for (const unsigned char* p = find_forbidden_sequence(first, last); p != last;
         p = find_forbidden_sequence(p + 1, last)) {
        if (format == nalfmt_annex_b && is_passed_over_start_code(p, last)) {
            if (passed_over++ == 0) {
                first_passed_over = place_of(p);
            }
        } else if (sequences++ == 0) {
            first_sequence = p;
        }
    }
    if (passed_over != 0) {
        unit.faults.push_back(passed_over_fault(first_passed_over, passed_over));
    }
    if (sequences != 0) {
        unit.faults.push_back(fmt::format("00 00 {:02x} inside, at {}{}", first_sequence[2],
                                          place_of(first_sequence), and_more(sequences)));
    }
}

std::string passed_over_fault(std::uint64_t first, std::uint64_t count) {
    return fmt::format("ignored the start code at {}: forbidden_zero_bit is 1 after it{}", first,
                       and_more(count));
}

}  // namespace kovran::inspect
