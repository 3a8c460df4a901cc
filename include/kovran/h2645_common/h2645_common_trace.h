#ifndef KOVRAN_H2645_COMMON_H2645_COMMON_TRACE_H
#define KOVRAN_H2645_COMMON_H2645_COMMON_TRACE_H

#include <kovran/export.h>
#include <kovran/h2645_common/h2645_common_element_name.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace kovran {

// A syntax element as it was read. Its name and indices come from name_of().
struct h2645_common_traced_element {
    const char* name = "";        // without prefix and indices
    const char* descriptor = "";  // clause 7.2: "u(n)", "u(v)", "i(n)", "i(v)", "ue(v)", "se(v)",
                                  // "f(1)", "b(8)", "st(v)"
    std::size_t first_bit = 0;    // counted from the first bit of the reader's bytes
    std::size_t width = 0;        // in bits
    std::int64_t value = 0;       // 0 for more than 63 bits and for extension data of several bits

    // When reading by the library's own rules: the rule because of which this element is here, or
    // is read this way, where the standard's rules would have decided otherwise. Null where both
    // agree. See h265_rules.h.
    const char* rule = nullptr;

    // The structure around it: an index into h2645_common_trace::structures, or no_structure.
    unsigned int structure = 0xFFFFFFFF;

    // Its own indices, without those of a prefix: index_count entries of
    // h2645_common_trace::indices, from first_index on.
    unsigned int first_index = 0;
    unsigned char index_count = 0;

    bool out_of_range = false;  // the standard does not allow the value here

    // Bytes in a row are told together: this many entries of an array, the first of which has index
    // 0. Not 0 for them alone. They begin at first_bit, on a byte boundary.
    std::size_t run = 0;
};

// A structure that was read within the one that was parsed.
struct h2645_common_traced_structure {
    // For a prefix the name is "", and the indices are those that its elements begin with.
    h2645_common_element_name name;
    unsigned int parent = 0xFFFFFFFF;  // as in h2645_common_traced_element::structure
    std::size_t first_element = 0;     // number of elements read before it

    [[nodiscard]] bool is_prefix() const { return *name.prefix != '\0'; }
};

// The elements of one structure in the order of their bits. You own the trace; a traced parse
// clears it and keeps its memory.
//
// Elements that begin past the end of the data are not listed, so a trace never has more elements
// than the data has bits. Of extension data 4096 bits are elements of their own; those behind them
// are one.
struct h2645_common_trace {
    static constexpr unsigned int no_structure = 0xFFFFFFFF;

    std::vector<h2645_common_traced_element> elements;
    // In the order in which they begin. The parts of profile_tier_level() that give their elements
    // a prefix are included.
    std::vector<h2645_common_traced_structure> structures;
    std::vector<unsigned int> indices;  // of all elements

    void clear() {
        elements.clear();
        structures.clear();
        indices.clear();
    }
};

// The name of an element of `trace`, with prefix and indices.
[[nodiscard]] KOVRAN_API h2645_common_element_name
name_of(const h2645_common_trace& trace, const h2645_common_traced_element& element);

// The name of an element or of a structure of `trace`, after the names of the structures around it:
// vui_parameters.hrd_parameters.cpb_cnt_minus1[0].
[[nodiscard]] KOVRAN_API std::string path_of(const h2645_common_trace& trace,
                                             const h2645_common_traced_element& element);
[[nodiscard]] KOVRAN_API std::string path_of(const h2645_common_trace& trace,
                                             const h2645_common_traced_structure& structure);

}  // namespace kovran

#endif  // KOVRAN_H2645_COMMON_H2645_COMMON_TRACE_H
