#ifndef KOVRAN_SRC_H2645_COMMON_RESIZE_H
#define KOVRAN_SRC_H2645_COMMON_RESIZE_H

#include <cstddef>
#include <new>
#include <stdexcept>
#include <type_traits>
#include <vector>

namespace kovran {

template <class Array>
void resize(Array& array, std::size_t count) {
    array.resize(count);
}

// A vector takes as long to insert the first entry as to push several.
template <class Value>
[[gnu::always_inline]] inline std::enable_if_t<std::is_arithmetic_v<Value>> resize(
    std::vector<Value>& array, std::size_t count) {
    constexpr std::size_t few = 8;
    const std::size_t size = array.size();
    if (count <= size || count - size > few || count > array.capacity()) {
        array.resize(count);
        return;
    }
    for (std::size_t i = size; i < count; ++i) {
        if (array.size() == array.capacity()) {
            __builtin_unreachable();  // so that there is no code to grow the memory
        }
        array.push_back(Value{});
    }
}

// Both give every array `count` entries, in the order of the arguments: entries that are there
// stay, new ones are zero, those too many go.

// False when there is no memory; arrays before the one that could not grow have their new size
// then.
template <class... Arrays>
[[nodiscard]] bool try_resize(std::size_t count, Arrays&... arrays) {
    try {
        (resize(arrays, count), ...);
        return true;
    } catch (const std::bad_alloc&) {
        return false;
    } catch (const std::length_error&) {
        return false;
    }
}

// For the arrays to whose length the syntax sets no bound. No picture has more than 16 reference
// pictures; what is above this many entries comes from damaged or hostile bits, a few of which
// could ask for gigabytes.
constexpr std::size_t largest_unbounded_array = 1048576;

// Throws what the arrays throw, and std::bad_alloc for a count above largest_unbounded_array before
// any of them has changed.
template <class... Arrays>
void resize_or_throw(std::size_t count, Arrays&... arrays) {
    if (count > largest_unbounded_array) {
        throw std::bad_alloc();
    }
    (resize(arrays, count), ...);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H2645_COMMON_RESIZE_H
