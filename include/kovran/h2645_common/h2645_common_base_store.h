#ifndef KOVRAN_H2645_COMMON_H2645_COMMON_BASE_STORE_H
#define KOVRAN_H2645_COMMON_H2645_COMMON_BASE_STORE_H

#include <cstddef>
#include <map>
#include <stdexcept>

namespace kovran {

// The parsed parameter sets of one kind, by identifier. You fill the store and set `active_id`; the
// library's parsers look records up and never insert any. A reference to a record stays valid until
// that record is erased.
template <class T>
struct h2645_common_base_store {
    using map_type = std::map<unsigned int, T>;
    using iterator = typename map_type::iterator;
    using const_iterator = typename map_type::const_iterator;

    static constexpr unsigned int no_id = 0xFFFFFFFF;

    unsigned int active_id = no_id;  // the record in use; no_id when none is
    map_type map;                    // in the order of the identifiers

    // The record with this identifier; inserts a fresh one when there is none.
    T& operator[](unsigned int id) { return map[id]; }

    // The record with this identifier; throws std::out_of_range("map::at") when there is none.
    [[nodiscard]] T& at(unsigned int id) { return checked(find(id)); }
    [[nodiscard]] const T& at(unsigned int id) const { return checked(find(id)); }

    [[nodiscard]] bool contains(unsigned int id) const { return map.find(id) != map.end(); }
    [[nodiscard]] iterator find(unsigned int id) { return map.find(id); }
    [[nodiscard]] const_iterator find(unsigned int id) const { return map.find(id); }

    [[nodiscard]] bool empty() const { return map.empty(); }
    [[nodiscard]] std::size_t size() const { return map.size(); }

    // Returns how many records were erased: 0 or 1. erase() and clear() do not change `active_id`.
    std::size_t erase(unsigned int id) { return map.erase(id); }
    void clear() { map.clear(); }

    [[nodiscard]] iterator begin() { return map.begin(); }
    [[nodiscard]] iterator end() { return map.end(); }
    [[nodiscard]] const_iterator begin() const { return map.begin(); }
    [[nodiscard]] const_iterator end() const { return map.end(); }

private:
    // The text is the same with every standard library; std::map::at does not promise that.
    template <class Iterator>
    [[nodiscard]] auto& checked(Iterator position) const {
        if (position == map.end()) {
            throw std::out_of_range("map::at");
        }
        return position->second;
    }
};

}  // namespace kovran

#endif  // KOVRAN_H2645_COMMON_H2645_COMMON_BASE_STORE_H
