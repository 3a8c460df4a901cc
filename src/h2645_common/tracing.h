#ifndef KOVRAN_SRC_H2645_COMMON_TRACING_H
#define KOVRAN_SRC_H2645_COMMON_TRACING_H

#include <kovran/h2645_common/h2645_common_bitreader.h>
#include <kovran/h2645_common/h2645_common_fault.h>
#include <kovran/h2645_common/h2645_common_trace.h>

#include "h2645_common/element.h"
#include "h2645_common/fault_finder.h"
#include "h2645_common/reading.h"
#include "h2645_common/rule_notes.h"
#include "h2645_common/value_range.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <type_traits>
#include <utility>

namespace kovran {

// The walker that fills a record as `reading` does and tells of every element on the way: to a
// list, and to what finds out why a walk fails. Either may be left out.
//
// Past the end of the data the bits are 0 for as long as a record asks for them, which can be
// millions of elements after a dozen bytes; those are not listed.
template <class Rules>
class tracing : public reading<Rules> {
public:
    tracing(h2645_common_bitreader& source, h2645_common_trace* trace, h2645_common_fault* fault)
        : reading<Rules>(source),
          bits_of_data_(8 * (source.address(source.end) - source.address(source.start))),
          trace_(trace) {
        if (fault != nullptr) {
            fault_.emplace(*fault);
        }
        start();
    }

    ~tracing() {
        if (trace_ != nullptr) {
            trace_->elements.resize(listed());
        }
    }
    tracing(const tracing&) = delete;
    tracing& operator=(const tracing&) = delete;

    void align() {
        reading<Rules>::align();
        position_ = this->reader.bit_position();
    }
    void align(const char* name, unsigned int expected) {
        while (!this->is_aligned()) {
            const unsigned int bit = this->reader.template get<unsigned int>(1);
            tell(name, {}, "f(1)", 1, bit, between(expected, expected));
        }
    }

    void go_back() {
        reading<Rules>::go_back();
        start();
    }

    template <class Element>
    void u(unsigned char width, Element target, const value_range& allowed = any_value) {
        reading<Rules>::u(width, target);
        tell(target, "u(n)", width, allowed);
    }

    template <class Element>
    void u_v(unsigned char width, Element target, const value_range& allowed = any_value) {
        reading<Rules>::u_v(width, target);
        tell(target, "u(v)", width, allowed);
    }

    template <class Element>
    void ue(Element target, const value_range& allowed = any_value) {
        reading<Rules>::ue(target);
        tell(target, "ue(v)", width_of_latest(), allowed);
    }

    template <class Element>
    void se(Element target, const value_range& allowed = any_value) {
        reading<Rules>::se(target);
        tell(target, "se(v)", width_of_latest(), allowed);
    }

    template <class Element>
    void i(unsigned char width, Element target, const value_range& allowed = any_value) {
        reading<Rules>::i(width, target);
        tell(target, "i(n)", width, allowed);
    }

    template <class Element>
    void i_v(unsigned char width, Element target, const value_range& allowed = any_value) {
        reading<Rules>::i(width, target);
        tell(target, "i(v)", width, allowed);
    }

    template <class Element>
    void b(Element target) {
        reading<Rules>::b(target);
        tell(target, "b(8)", 8, any_value);
    }
    template <class Element>
    void bytes(Element target, const value_range& allowed = any_value) {
        const std::size_t count = target.field.size();
        reading<Rules>::bytes(target);
        if (count != 0) {
            const auto wrong =
                std::find_if(target.field.begin(), target.field.end(),
                             [&allowed](unsigned char byte) { return !allowed.has(byte); });
            tell(target.name, target.indices, "b(8)", 8 * count,
                 wrong != target.field.end() ? *wrong : target.field.front(), allowed);
            if (trace_ != nullptr) {
                next_[-1].run = count;
                next_[-1].value = 0;
            }
        }
    }

    template <class Element>
    [[nodiscard]] bool u_bytes(Element target) {
        const bool read = reading<Rules>::u_bytes(target);
        tell_bytes(target, "u(n)", target.field.size());
        return read;
    }

    template <class Element>
    [[nodiscard]] bool st(Element target) {
        const std::size_t left = this->payload_bytes_left();
        const bool read = reading<Rules>::st(target);
        if (!read && this->ran_out_of_memory()) {
            tell_no_memory();
        } else {
            tell_bytes(target, "st(v)", 1 + (read ? target.field.size() : left));
        }
        return read;
    }

    void skip(unsigned int width, const char* name) { skip_bits(width, name, {}); }
    void skip(unsigned int width, const char* name, std::size_t index) {
        skip_bits(width, name, element_indices{}.followed_by(index));
    }

    void extension_data(const char* name) {
        inlined_bitreader first = this->reader;
        reading<Rules>::extension_data(name);
        const std::size_t width = width_of_latest();
        if (width != 0) {  // a single flag has its value, others have none
            tell(name, {}, "u(1)", width, width == 1 ? first.get<unsigned int>(1) : 0, any_value);
        }
    }

    // A flag is an element; those behind the first ones, which only a hostile stream has, are one
    // element together.
    template <class Flags>
    [[nodiscard]] bool extension_data(element<Flags&> flags) {
        constexpr std::size_t most_listed = 4096;
        const std::size_t count = this->payload_bits_left();
        if (!grow(count, flags.field)) {
            return false;
        }
        const std::size_t listed_alone = std::min(count, most_listed);
        for (std::size_t i = 0; i < listed_alone; ++i) {
            u(1, indexed_element<decltype(flags.field[i])>{flags.name, flags.field[i], {}});
        }
        for (std::size_t i = listed_alone; i < count; ++i) {
            flags.field[i] = this->reader.template get<unsigned int>(1) != 0;
        }
        if (count != listed_alone) {  // a single flag has its value, as above
            const std::size_t width = width_of_latest();
            tell(flags.name, {}, "u(1)", width, width == 1 && flags.field.back() ? 1 : 0,
                 any_value);
        }
        return true;
    }

    template <class WalkPart>
    [[nodiscard]] bool attempt(WalkPart&& walk_part) {
        const place before = here();
        const std::optional<fault_finder> finder = fault_;
        if (reading<Rules>::attempt(std::forward<WalkPart>(walk_part))) {
            return true;
        }
        go_back_to(before);
        if (fault_ && !this->ran_out_of_memory()) {
            fault_->forget();
            fault_.emplace(*finder);
        }
        return false;
    }

    // What goes wrong in the part stays told.
    template <class WalkPart>
    [[nodiscard]] bool within(std::size_t size, WalkPart&& walk_part) {
        const place before = here();
        const std::size_t bits_of_whole = bits_of_data_;
        bits_of_data_ = std::min(bits_of_data_, position_ + 8 * size);
        const bool walked = reading<Rules>::within(size, [&] {
            const bool read = std::forward<WalkPart>(walk_part)();
            if (!read && fault_) {
                fault_->refuse_part();
            }
            return read;
        });
        bits_of_data_ = bits_of_whole;
        if (!walked) {
            go_back_to(before);
        }
        return walked;
    }

    [[nodiscard]] bool byte_run(const char* last_byte, unsigned int& sum) {
        inlined_bitreader first = this->reader;
        const bool read = reading<Rules>::byte_run(last_byte, sum);
        for (std::size_t left = width_of_latest() / 8; left != 0; --left) {
            const auto byte = first.get<unsigned int>(8);
            const bool last = byte != 0xFF;
            tell(last ? last_byte : "ff_byte", {}, last ? "u(8)" : "f(8)", 8, byte, any_value);
        }
        if (!read) {
            tell(last_byte, {}, "u(8)", 8, 0, any_value);
        }
        return read;
    }

    template <class Flags>
    [[nodiscard]] bool payload_end(element<Flags&> reserved_payload_extension_data) {
        if (this->reader.bits_left() <= 0) {
            return true;
        }
        const std::size_t extension_bits = this->payload_bits_left();
        if (extension_bits != 0) {
            inlined_bitreader first = this->reader;
            if (!reading<Rules>::extension_data(reserved_payload_extension_data)) {
                tell_no_memory();
                return false;
            }
            tell(reserved_payload_extension_data.name, {}, "u(v)", extension_bits,
                 first.value_of(extension_bits), any_value);
        }
        do {
            static_cast<void>(trailing_bit("payload_bit_equal_to_one", 1));
            while (!this->is_aligned()) {
                static_cast<void>(trailing_bit("payload_bit_equal_to_zero", 0));
            }
        } while (this->reader.bits_left() > 0);
        position_ = this->reader.bit_position();
        return true;
    }

    void unknown_extension() {
        if (fault_) {
            fault_->unknown_extension();
        }
    }

    [[nodiscard]] bool rbsp_trailing_bits() {
        bool well_formed = trailing_bit("rbsp_stop_one_bit", 1);
        while (this->reader.bits_to_byte_boundary() != 0) {
            well_formed = trailing_bit("rbsp_alignment_zero_bit", 0) && well_formed;
        }
        return well_formed;
    }

    template <class Structure, class WalkFields>
    [[nodiscard]] bool structure(Structure nested, WalkFields&& walk_fields) {
        const h2645_common_element_name name = full_name(nested.name, nested.indices);
        const unsigned int outer = structure_;
        if (fault_) {
            fault_->open(name);
        }
        list_structure(name);
        const bool walked = std::forward<WalkFields>(walk_fields)(nested.field);
        structure_ = outer;
        if (fault_) {
            fault_->close(walked);
        }
        return walked;
    }

    template <class Part, class WalkFields>
    [[nodiscard]] bool prefixed(const char* prefix, Part part, WalkFields&& walk_fields) {
        const unsigned int outer = structure_;
        prefix_ = prefix;
        prefix_indices_ = part.indices;
        list_structure(full_name("", {}));
        const bool walked = std::forward<WalkFields>(walk_fields)(part.field);
        prefix_ = "";
        prefix_indices_ = {};
        structure_ = outer;
        return walked;
    }

    template <class Element, class Limit>
    [[nodiscard]] bool at_most(const Element& target, Limit limit) {
        const bool allowed = reading<Rules>::at_most(target, limit);
        if (!allowed) {
            refuse(target, static_cast<std::int64_t>(limit));
        }
        return allowed;
    }
    template <class Element, class Value>
    [[nodiscard]] bool at_most(const Element& target, const noted_bound<Value>& limit) {
        const bool allowed = at_most(target, limit.own);
        if (allowed != reading<Rules>::at_most(target, limit.other)) {
            this->rules.note(limit.rule);
        }
        return allowed;
    }

    template <class Element>
    [[nodiscard]] bool data_holds(const Element& announced_by, std::uint64_t entries,
                                  unsigned int fewest_bits) {
        const bool holds = this->holds(entries, fewest_bits);
        note_unless(holds, "data_may_end");
        if (Rules::data_may_end || holds) {
            return true;
        }
        const std::int64_t left = this->reader.bits_left();
        const std::int64_t held = left < 0 ? 0 : left / fewest_bits;
        refuse(announced_by, static_cast<std::int64_t>(announced_by.field) -
                                 (static_cast<std::int64_t>(entries) - held));
        return false;
    }

    template <class Store>
    [[nodiscard]] auto* named_set(Store& stored, unsigned int id) {
        return find_valid_entry(stored, id);
    }

    [[nodiscard]] bool missing(const char* parameter_set, unsigned int id) {
        if (fault_) {
            fault_->missing(parameter_set, id);
        }
        return false;
    }

    template <class Flag>
    [[nodiscard]] bool finish(Flag&& valid) {
        note_unless(this->holds(0, 0), "data_may_end");
        return reading<Rules>::finish(std::forward<Flag>(valid));
    }

    [[nodiscard]] bool finish_rbsp(bool& valid) {
        const bool whole = this->holds(0, 0);
        const bool well_formed = rbsp_trailing_bits();
        note_unless(whole, "data_may_end");
        note_unless(!whole || well_formed, "trailing_bits_decide");
        valid = Rules::trailing_bits_decide ? well_formed : whole;
        return valid;
    }

    [[nodiscard]] bool finish_aligned(bool& valid) {
        valid = this->holds(1, 1);
        if (!valid) {
            tell("alignment_bit_equal_to_one", {}, "f(1)", 1, 0, any_value);
        }
        static_cast<void>(trailing_bit("alignment_bit_equal_to_one", 1));
        while (this->reader.bits_to_byte_boundary() != 0) {
            static_cast<void>(trailing_bit("alignment_bit_equal_to_zero", 0));
        }
        return valid;
    }

    template <class... Arrays>
    [[nodiscard]] bool grow(std::size_t count, Arrays&... arrays) {
        const bool grown = reading<Rules>::grow(count, arrays...);
        if (!grown) {
            tell_no_memory();
        }
        return grown;
    }

    template <class... Arrays>
    void grow_or_throw(std::size_t count, Arrays&... arrays) {
        try {
            reading<Rules>::grow_or_throw(count, arrays...);
        } catch (...) {
            tell_no_memory();
            throw;
        }
    }

    // The end of the walk of the outermost description, which returned `walked`.
    [[nodiscard]] bool end(bool walked) {
        if (trace_ != nullptr && listed() != 0) {
            const char*& rule = next_[-1].rule;
            rule = rule == nullptr ? take_note() : rule;
        }
        if (fault_) {
            fault_->end(walked);
        }
        return walked;
    }

private:
    static constexpr value_range any_value{};

    void start() {
        if (trace_ != nullptr) {
            trace_->structures.clear();
            trace_->indices.clear();
            next_ = trace_->elements.data();
            end_of_room_ = next_ + trace_->elements.size();
        }
        if (fault_) {
            fault_->start();
        }
        position_ = this->reader.bit_position();
    }

    // Where the walk and its list stand.
    struct place {
        std::size_t position;
        std::size_t elements;
        std::size_t structures;
        std::size_t indices;
    };
    [[nodiscard]] place here() const {
        if (trace_ == nullptr) {
            return {position_, 0, 0, 0};
        }
        return {position_, listed(), trace_->structures.size(), trace_->indices.size()};
    }
    void go_back_to(const place& before) {
        position_ = before.position;
        if (trace_ != nullptr) {
            next_ = trace_->elements.data() + before.elements;
            trace_->structures.resize(before.structures);
            trace_->indices.resize(before.indices);
        }
    }

    static constexpr bool takes_notes = std::is_base_of_v<rule_notes, Rules>;

    [[nodiscard]] const char* take_note() {
        if constexpr (takes_notes) {
            return this->rules.take_note();
        } else {
            return nullptr;
        }
    }

    void note_unless(bool agreed, const char* rule) {
        if constexpr (takes_notes) {
            if (!agreed) {
                this->rules.note(rule);
            }
        } else {
            static_cast<void>(agreed);
            static_cast<void>(rule);
        }
    }

    void write_name(h2645_common_element_name& full, const char* name,
                    const element_indices& indices) const {
        full.prefix = prefix_;
        full.name = name;
        if (prefix_indices_.count + indices.count == 0) {
            return;
        }
        for (unsigned int i = 0; i < prefix_indices_.count; ++i) {
            full.indices[full.index_count++] = prefix_indices_.value[i];
        }
        for (unsigned int i = 0; i < indices.count; ++i) {
            full.indices[full.index_count++] = indices.value[i];
        }
    }

    [[nodiscard]] h2645_common_element_name full_name(const char* name,
                                                      const element_indices& indices) const {
        h2645_common_element_name full;
        write_name(full, name, indices);
        return full;
    }

    void list_structure(const h2645_common_element_name& name) {
        if (trace_ != nullptr && position_ < bits_of_data_) {
            const unsigned int outer = structure_;
            structure_ = static_cast<unsigned int>(trace_->structures.size());
            trace_->structures.push_back({name, outer, listed()});
        }
    }

    // Elements are written over those of an earlier trace; the list gets its size at the end.
    [[nodiscard]] std::size_t listed() const {
        return static_cast<std::size_t>(next_ - trace_->elements.data());
    }
    [[gnu::noinline]] void make_room() {
        constexpr std::size_t fewest = 64;
        const std::size_t used = listed();
        trace_->elements.resize(std::max(fewest, 2 * used));
        next_ = trace_->elements.data() + used;
        end_of_room_ = trace_->elements.data() + trace_->elements.size();
    }

    [[gnu::always_inline]] void list(const char* name, const element_indices& indices,
                                     const char* descriptor, std::size_t bit, std::size_t width,
                                     std::int64_t value, bool out_of_range) {
        if (next_ == end_of_room_) {
            make_room();
        }
        h2645_common_traced_element& element = *next_++;
        element.name = name;
        element.descriptor = descriptor;
        element.first_bit = bit;
        element.width = width;
        element.value = value;
        element.rule = take_note();
        element.structure = structure_;
        element.first_index = 0;
        element.index_count = 0;
        element.out_of_range = out_of_range;
        element.run = 0;
        if (indices.count != 0) {
            element.first_index = static_cast<unsigned int>(trace_->indices.size());
            element.index_count = static_cast<unsigned char>(indices.count);
            for (unsigned int i = 0; i < indices.count; ++i) {
                trace_->indices.push_back(indices.value[i]);
            }
        }
    }

    template <class Element>
    void tell(const Element& target, const char* descriptor, std::size_t width,
              const value_range& allowed) {
        tell(target.name, target.indices, descriptor, width,
             static_cast<std::int64_t>(target.field), allowed);
    }

    // Bytes that no value holds; they are the host's own.
    template <class Element>
    void tell_bytes(const Element& target, const char* descriptor, std::size_t count) {
        tell(target.name, target.indices, descriptor, 8 * count, 0, any_value);
    }

    void tell_no_memory() {
        if (fault_) {
            fault_->no_memory();
        }
    }

    // Fields are written one by one where they are to stay: copies of what has just been written
    // piece by piece would have to wait for it.
    void tell(const char* name, const element_indices& indices, const char* descriptor,
              std::size_t width, std::int64_t value, const value_range& allowed) {
        const std::size_t bit = position_;
        position_ += width;
        if (trace_ != nullptr && bit < bits_of_data_) {
            list(name, indices, descriptor, bit, width, value, !allowed.has(value));
        }
        if (fault_) {
            follow(name, indices, bit, value, allowed);
        }
    }

    [[gnu::noinline]] void follow(const char* name, const element_indices& indices, std::size_t bit,
                                  std::int64_t value, const value_range& allowed) {
        h2645_common_element_name& last =
            fault_->read(bit, value, allowed, /*whole=*/position_ <= bits_of_data_);
        write_name(last, name, indices);
        fault_->tell_end_of_data();
    }

    // Of an Exp-Golomb code that has just been read.
    [[nodiscard]] std::size_t width_of_latest() const {
        return this->reader.bit_position() - position_;
    }

    void skip_bits(unsigned int width, const char* name, const element_indices& indices) {
        std::int64_t value = 0;
        for (unsigned int left = width; left != 0;) {
            const auto part = static_cast<unsigned char>(left < 32 ? left : 32);
            value = value << part | this->reader.template get<unsigned int>(part);
            left -= part;
        }
        tell(name, indices, "u(n)", width, value, any_value);
    }

    [[nodiscard]] bool trailing_bit(const char* name, unsigned int expected) {
        const std::size_t bit = this->reader.bit_position();
        const unsigned int value = this->reader.template get<unsigned int>(1);
        const h2645_common_element_name full = full_name(name, {});
        if (trace_ != nullptr && bit < bits_of_data_) {
            list(name, {}, "f(1)", bit, 1, value, value != expected);
        }
        if (fault_ && value != expected) {
            fault_->trailing_bit(full, bit, value, expected);
        }
        return value == expected;
    }

    template <class Element>
    void refuse(const Element& target, std::int64_t highest) {
        if (!fault_) {
            return;
        }
        fault_->refuse(full_name(target.name, target.indices), this->reader.bit_position(),
                       static_cast<std::int64_t>(target.field), highest);
    }

    std::size_t bits_of_data_;
    std::size_t position_ = 0;  // behind the element told last
    h2645_common_trace* trace_;
    h2645_common_traced_element* next_ = nullptr;
    h2645_common_traced_element* end_of_room_ = nullptr;
    std::optional<fault_finder> fault_;
    unsigned int structure_ = h2645_common_trace::no_structure;

    // Of the part that is being walked, see prefixed().
    const char* prefix_ = "";
    element_indices prefix_indices_;
};

}  // namespace kovran

#endif  // KOVRAN_SRC_H2645_COMMON_TRACING_H
