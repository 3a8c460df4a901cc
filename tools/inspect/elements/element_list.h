#ifndef KOVRAN_TOOLS_INSPECT_ELEMENTS_ELEMENT_LIST_H
#define KOVRAN_TOOLS_INSPECT_ELEMENTS_ELEMENT_LIST_H

#include "elements/element_path.h"
#include "elements/trace_sink.h"

#include <cstdint>
#include <string>
#include <vector>

namespace kovran::inspect {

// The syntax elements of a unit, or of a part of it, in the order of their bits. Of the ff_byte
// elements of one type or size of an SEI message there is only the first: they can be as many as
// the unit has bytes, and every reading has the same.
class element_list : public trace_sink {
public:
    struct entry {
        std::string path;
        const char* descriptor;
        std::size_t bit;
        std::size_t width;
        std::int64_t value;
        const char* rule;  // by which it is here where the standard decides otherwise, or null

        [[nodiscard]] bool reads_like(const entry& other) const {
            return path == other.path && bit == other.bit && width == other.width &&
                   value == other.value;
        }
    };

    [[nodiscard]] const std::vector<entry>& entries() const { return entries_; }
    // Whether there was an SEI payload that was not taken apart. It is no element.
    [[nodiscard]] bool has_opaque_payload() const { return has_opaque_payload_; }
    void clear() {
        entries_.clear();
        has_opaque_payload_ = false;
    }

    void begin_structure(const h2645_common_element_name& name) override;
    void end_structure() override;
    void read(const shown_element& read_element) override;
    void begin_message(const h265_nal_sei_reader& message) override;
    void end_message() override;

private:
    std::vector<entry> entries_;
    bool has_opaque_payload_ = false;
    bool in_ff_bytes_ = false;
    element_path path_;
};

}  // namespace kovran::inspect

#endif  // KOVRAN_TOOLS_INSPECT_ELEMENTS_ELEMENT_LIST_H
