#ifndef KOVRAN_SRC_H2645_COMMON_ELEMENT_H
#define KOVRAN_SRC_H2645_COMMON_ELEMENT_H

namespace kovran {

// A syntax element as a walker gets it: what the standard calls it, and the field that holds it.
template <class Field>
struct element {
    const char* name;
    Field& field;
};

template <class Field>
element(const char*, Field&) -> element<Field>;

}  // namespace kovran

#define ELEMENT(record, name) \
    ::kovran::element { #name, (record).name }

#endif  // KOVRAN_SRC_H2645_COMMON_ELEMENT_H
