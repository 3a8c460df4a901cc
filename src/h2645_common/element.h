#ifndef KOVRAN_SRC_H2645_COMMON_ELEMENT_H
#define KOVRAN_SRC_H2645_COMMON_ELEMENT_H

#include <kovran/h2645_common/h2645_common_element_name.h>

#include <array>
#include <cstddef>

namespace kovran {

// Where in arrays an element stands, outermost index first; none for an element that is no array's.
struct element_indices {
    std::array<unsigned int, h2645_common_element_name::most_indices> value{};
    unsigned int count = 0;

    [[nodiscard]] constexpr element_indices followed_by(std::size_t index) const {
        element_indices longer = *this;
        longer.value[longer.count++] = static_cast<unsigned int>(index);
        return longer;
    }
};

// An entry of an array of elements or structures.
template <class Field>
struct indexed_element {
    const char* name = nullptr;
    Field field;
    element_indices indices;

    [[nodiscard]] constexpr auto operator[](std::size_t index) const {
        return indexed_element<decltype(field[index])>{name, field[index],
                                                       indices.followed_by(index)};
    }
};

// A syntax element, or a nested structure, as a walker gets it: what the standard calls it, and the
// field that holds it. `Field` is a reference or, for a flag in a bit vector, what stands for one.
template <class Field>
struct element {
    const char* name = nullptr;
    Field field;
    static constexpr element_indices indices{};

    [[nodiscard]] constexpr auto operator[](std::size_t index) const {
        return indexed_element<decltype(field[index])>{name, field[index],
                                                       indices.followed_by(index)};
    }
};

template <class Field>
[[nodiscard]] constexpr element<Field&> named(const char* name, Field& field) {
    return {name, field};
}
template <class Field>
[[nodiscard]] constexpr indexed_element<Field&> named(const char* name, Field& field,
                                                      element_indices indices) {
    return {name, field, indices};
}

}  // namespace kovran

#define ELEMENT(record, name) ::kovran::named(#name, (record).name)

#endif  // KOVRAN_SRC_H2645_COMMON_ELEMENT_H
