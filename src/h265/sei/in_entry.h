#ifndef KOVRAN_SRC_H265_SEI_IN_ENTRY_H
#define KOVRAN_SRC_H265_SEI_IN_ENTRY_H

#include "h2645_common/element.h"

#include <cstddef>

namespace kovran {

// An element that stands in a struct of its own, one for each turn of a loop: the standard has an
// array of it, and so its name gets the index of the turn, in_entry(i, ELEMENT(region, width)).
template <class Field>
[[nodiscard]] constexpr indexed_element<Field&> in_entry(std::size_t index,
                                                         element<Field&> target) {
    return named(target.name, target.field, element_indices{}.followed_by(index));
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_SEI_IN_ENTRY_H
