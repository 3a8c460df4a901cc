#ifndef KOVRAN_SRC_H2645_COMMON_FAULT_FINDER_H
#define KOVRAN_SRC_H2645_COMMON_FAULT_FINDER_H

#include <kovran/h2645_common/h2645_common_element_name.h>
#include <kovran/h2645_common/h2645_common_fault.h>

#include "h2645_common/value_range.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace kovran {

// Follows a walk and tells the first thing that goes wrong. What a description refuses without a
// reason of its own is the value of the element that it read last, as tests stand right under what
// they test.
class fault_finder {
public:
    explicit fault_finder(h2645_common_fault& fault) : fault_(fault) {}

    void start();

    void open(const h2645_common_element_name& structure);
    void close(bool walked);

    // An element; the caller writes its name where this returns, and then calls
    // tell_end_of_data(). `whole`: the element ends in the data.
    [[nodiscard]] h2645_common_element_name& read(std::size_t bit, std::int64_t value,
                                                  const value_range& allowed, bool whole) {
        ++reads_;
        read_element& latest = last();
        latest.name.index_count = 0;
        latest.bit = bit;
        latest.value = value;
        latest.allowed = allowed;
        latest.depth = depth_;
        path_of_last_kept_ = false;
        last_is_whole_ = whole;
        return latest.name;
    }
    void tell_end_of_data() {
        if (!last_is_whole_) {
            tell(h2645_common_fault_kind::data_ended, last());
        }
    }

    // A value that is above `highest`, wherever it comes from; `bit` is where the walk stands.
    void refuse(const h2645_common_element_name& name, std::size_t bit, std::int64_t value,
                std::int64_t highest);
    // The element read last, where a part is refused that does not end the walk. What was told of
    // the part stays told, an end of the part's data as well.
    void refuse_part() {
        tell_refusal_of_last();
        part_was_refused_ = true;
    }
    void missing(const char* parameter_set, unsigned int id);
    void no_memory();
    void unknown_extension();
    void trailing_bit(const h2645_common_element_name& name, std::size_t bit, std::int64_t value,
                      std::int64_t expected);

    // What has been told: it belongs to a part that is walked otherwise now.
    void forget() { fault_ = {}; }

    void end(bool walked);

private:
    struct read_element {
        h2645_common_element_name name;
        std::size_t bit = 0;
        std::int64_t value = 0;
        value_range allowed;
        unsigned int depth = 0;
    };
    using path = std::array<h2645_common_element_name, h2645_common_fault::most_structures>;

    [[nodiscard]] read_element& last() { return latest_[reads_ % latest_.size()]; }
    [[nodiscard]] bool untold() const { return fault_.kind == h2645_common_fault_kind::none; }
    // False when the fault is one of before.
    bool tell(h2645_common_fault_kind kind, const read_element& culprit);
    void tell_value(const read_element& culprit, std::int64_t highest);
    void tell_refusal_of_last();

    h2645_common_fault& fault_;

    // The elements read last: a test may stand below the one after that which it tests.
    std::array<read_element, 8> latest_{};
    std::size_t reads_ = 0;
    bool last_is_whole_ = true;
    bool part_was_refused_ = false;

    path structures_{};
    unsigned int depth_ = 0;
    path path_of_last_{};  // when another structure has taken its place in structures_
    bool path_of_last_kept_ = false;
};

}  // namespace kovran

#endif  // KOVRAN_SRC_H2645_COMMON_FAULT_FINDER_H
