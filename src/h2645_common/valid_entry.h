#ifndef KOVRAN_SRC_H2645_COMMON_VALID_ENTRY_H
#define KOVRAN_SRC_H2645_COMMON_VALID_ENTRY_H

namespace kovran {

// The record of a store under an identifier that the stream gives; null when there is none or its
// parse failed. Inserts nothing.
template <class Store>
[[nodiscard]] auto* valid_entry(Store& store, unsigned int id) {
    const auto entry = store.find(id);
    return entry != store.end() && entry->second.valid ? &entry->second : nullptr;
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H2645_COMMON_VALID_ENTRY_H
