#ifndef KOVRAN_H2645_COMMON_H2645_COMMON_FAULT_H
#define KOVRAN_H2645_COMMON_H2645_COMMON_FAULT_H

#include <kovran/export.h>
#include <kovran/h2645_common/h2645_common_element_name.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

namespace kovran {

enum class h2645_common_fault_kind : unsigned int {
    none = 0,
    data_ended = 1,             // the element begins or ends past the end of the data
    value = 2,                  // of the element: parsing cannot continue with it; also a count of
                                // more entries than the rest of the data can hold
    parameter_set_missing = 3,  // the set that the element names is not in its store
    contradiction = 4,          // values that were read, or are in a store, do not fit together
    no_memory = 5,              // not enough for an array
    trailing_bits = 6,          // they are malformed; everything before them was read
    unknown_extension = 7,      // what follows the element is none of the standard's extensions; it
                                // was kept as extension data, and everything was read
};

// Why a structure could not be read, or what is wrong with one that was read: where reading
// stopped, and what was there. It owns no memory and may be copied.
struct h2645_common_fault {
    static constexpr unsigned int most_structures = 6;

    h2645_common_fault_kind kind = h2645_common_fault_kind::none;

    // The structures around the element, outermost first, without the one that was parsed.
    std::array<h2645_common_element_name, most_structures> structures{};
    unsigned int structure_count = 0;

    // The element. After data_ended it is the first one that is not complete; after no_memory,
    // contradiction and parameter_set_missing it is the last one read.
    h2645_common_element_name element;
    std::size_t first_bit = 0;  // counted from the first bit of the reader's bytes
    std::int64_t value = 0;     // as it was read; bits past the end of the data are 0

    // What a `value` may be.
    std::int64_t lowest = 0;
    std::int64_t highest = 0;

    // What is missing after parameter_set_missing: "VPS", "SPS" or "PPS", and its identifier;
    // 0xFFFFFFFF when none is active.
    const char* parameter_set = "";
    unsigned int parameter_set_id = 0;
};

// One line, without a line feed; "no fault" when there is none.
[[nodiscard]] KOVRAN_API std::string to_string(const h2645_common_fault& fault);

}  // namespace kovran

#endif  // KOVRAN_H2645_COMMON_H2645_COMMON_FAULT_H
