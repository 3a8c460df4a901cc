#ifndef KOVRAN_SRC_H2645_COMMON_TRY_RESIZE_H
#define KOVRAN_SRC_H2645_COMMON_TRY_RESIZE_H

#include <cstddef>
#include <new>
#include <stdexcept>

namespace kovran {

// Gives every array `count` entries, in the order of the arguments: entries that are there stay,
// new ones are zero, those too many go. False when there is no memory; arrays before the one that
// could not grow have their new size then.
template <class... Arrays>
[[nodiscard]] bool try_resize(std::size_t count, Arrays&... arrays) {
    try {
        (arrays.resize(count), ...);
        return true;
    } catch (const std::bad_alloc&) {
        return false;
    } catch (const std::length_error&) {
        return false;
    }
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H2645_COMMON_TRY_RESIZE_H
