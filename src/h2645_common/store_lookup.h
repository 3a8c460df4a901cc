#ifndef KOVRAN_SRC_H2645_COMMON_STORE_LOOKUP_H
#define KOVRAN_SRC_H2645_COMMON_STORE_LOOKUP_H

namespace kovran {

// The record of a store under an identifier that the stream gives, or null. Inserts nothing.
template <class Store>
[[nodiscard]] auto* find_entry(Store& store, unsigned int id) {
    const auto entry = store.find(id);
    return entry != store.end() ? &entry->second : nullptr;
}

// The same, null also where the record's parse has failed.
template <class Store>
[[nodiscard]] auto* find_valid_entry(Store& store, unsigned int id) {
    auto* const entry = find_entry(store, id);
    return entry != nullptr && entry->valid ? entry : nullptr;
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H2645_COMMON_STORE_LOOKUP_H
