#ifndef KOVRAN_SRC_H2645_COMMON_READING_H
#define KOVRAN_SRC_H2645_COMMON_READING_H

#include <kovran/h2645_common/h2645_common_bitreader.h>

#include "h2645_common/element.h"
#include "h2645_common/inlined_bitreader.h"
#include "h2645_common/resize.h"
#include "h2645_common/store_lookup.h"
#include "h2645_common/value_range.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <type_traits>
#include <utility>

namespace kovran {

// The walker that fills a record from a bit reader: what every parse() walks its description with.
// Names, indices and ranges vanish when compiling; what is left are the reads.
template <class Rules>
class reading {
public:
    using rules_type = Rules;

    // Where a description asks how to read on.
    Rules rules;

    // Takes the reader's state over, and gives it back at the end. A reference would be one more
    // load at every element.
    explicit reading(h2645_common_bitreader& source) : reader(source), source_(&source) {}
    // For a walk of these bytes after which nobody asks where it ended.
    reading(const unsigned char* begin, const unsigned char* end)
        : reader(h2645_common_bitreader(begin, end)), source_(nullptr) {}
    reading(const reading&) = delete;
    reading& operator=(const reading&) = delete;
    ~reading() {
        if (source_ != nullptr) {
            *source_ = reader.bitreader();
        }
    }

    // Back to where the walk began.
    void go_back() { reader = inlined_bitreader(*source_); }

    // Descriptors of clause 7.2. u_v is u(v), a width that comes from the stream. They are inlined
    // at every element, however many a description has, so that known widths stay constants.
    template <class Element>
    [[gnu::always_inline]] void u(unsigned char width, Element target,
                                  value_range /*allowed*/ = {}) {
        store(target, reader.get<unsigned int>(width));
    }

    template <class Element>
    [[gnu::always_inline]] void u_v(unsigned char width, Element target,
                                    value_range /*allowed*/ = {}) {
        if constexpr (sizeof(value_type<decltype(target.field)>) > sizeof(unsigned int)) {
            target.field = wide_value(width);
        } else {
            store(target, reader.get<unsigned int>(width));
        }
    }

    template <class Element>
    [[gnu::always_inline]] void ue(Element target, value_range /*allowed*/ = {}) {
        store(target, reader.template ue<!Rules::data_may_end>());
    }

    template <class Element>
    [[gnu::always_inline]] void se(Element target, value_range /*allowed*/ = {}) {
        target.field = reader.template se<!Rules::data_may_end>();
    }

    // i(n), in two's complement.
    template <class Element>
    [[gnu::always_inline]] void i(unsigned char width, Element target,
                                  value_range /*allowed*/ = {}) {
        target.field = static_cast<value_type<decltype(target.field)>>(
            twos_complement(reader.get<unsigned int>(width), width));
    }

    template <class Element>
    [[gnu::always_inline]] void i_v(unsigned char width, Element target, value_range allowed = {}) {
        i(width, target, allowed);
    }

    // b(8): one, and as many as the field holds, which begin on a byte boundary. Their number has
    // been compared with what the data holds.
    template <class Element>
    [[gnu::always_inline]] void b(Element target) {
        u(8, target);
    }
    template <class Element>
    void bytes(Element target, value_range /*allowed*/ = {}) {
        if (!target.field.empty()) {
            std::copy_n(reader.bytes(), target.field.size(), target.field.begin());
            reader.skip_bytes(target.field.size());
        }
    }

    // u(n) of more than 64 bits, likewise. False when the data does not hold them.
    template <class Element>
    [[nodiscard]] bool u_bytes(Element target) {
        if (target.field.size() > payload_bytes_left()) {
            return false;
        }
        bytes(target);
        return true;
    }

    // st(v), which begins on a byte boundary, without the zero byte that ends it. False when there
    // is no such byte, or no memory.
    template <class Element>
    [[nodiscard]] bool st(Element target) {
        const std::size_t left = payload_bytes_left();
        const std::size_t length = bytes_before_zero(left);
        if (length == left || !grow(length, target.field)) {
            return false;
        }
        bytes(target);
        reader.skip(8);
        return true;
    }

    // Bits that no field holds.
    void skip(unsigned int width, const char* /*name*/) { reader.skip(width); }
    void skip(unsigned int width, const char* /*name*/, std::size_t /*index*/) {
        reader.skip(width);
    }

    // All extension data flags: whatever stands before the trailing bits.
    void extension_data(const char* /*name*/) {
        h2645_common_bitreader ahead = reader.bitreader();
        while (h2645_common_more_rbsp_data(ahead)) {
            ahead.skip(1);
        }
        reader = inlined_bitreader(ahead);
    }
    // The same, bit by bit into a field; false when there is no memory.
    template <class Flags>
    [[nodiscard]] bool extension_data(element<Flags&> flags) {
        const std::size_t count = payload_bits_left();
        if (!grow(count, flags.field)) {
            return false;
        }
        for (std::size_t i = 0; i < count; ++i) {
            flags.field[i] = reader.get<unsigned int>(1) != 0;
        }
        return true;
    }

    // Walks a part that may turn out not to be there. False when a description refuses it, or when
    // it does not end before the trailing bits: the walk then stands where it stood before, and
    // what the part has left in fields is for the caller to clear.
    template <class WalkPart>
    [[nodiscard]] bool attempt(WalkPart&& walk_part) {
        const inlined_bitreader before = reader;
        if (std::forward<WalkPart>(walk_part)() && payload_holds_all()) {
            return true;
        }
        reader = before;
        return false;
    }

    // The bits up to the last 1 bit of the data, which begins the trailing bits.
    [[nodiscard]] std::size_t payload_bits_left() const {
        const std::int64_t left = reader.bits_to_stop_bit();
        return left > 0 ? static_cast<std::size_t>(left) : 0;
    }

    // What was to be an extension, and could not be read as one, is in the extension data.
    void unknown_extension() {}

    void align() { reader.align(); }
    // The same where the standard wants the bits to have a value.
    void align(const char* /*name*/, unsigned int /*expected*/) { reader.align(); }
    [[nodiscard]] bool is_aligned() const { return reader.bits_to_byte_boundary() == 0; }

    // The bytes of the data behind the position, which begins one.
    [[nodiscard]] std::size_t payload_bytes_left() const {
        const std::int64_t left = reader.bits_left();
        return left > 0 ? static_cast<std::size_t>(left) / 8 : 0;
    }

    // Walks a part whose size in bytes is known: the data ends for it where the part does. False
    // when a description refuses it: the walk then stands where the part begins, and what the part
    // has left in fields is for the caller to clear.
    template <class WalkPart>
    [[nodiscard]] bool within(std::size_t size, WalkPart&& walk_part) {
        inlined_bitreader whole = reader;
        reader = whole.first_bytes(size);
        const bool walked = std::forward<WalkPart>(walk_part)();
        if (walked) {
            whole.skip_bytes(size);
        }
        reader = whole;
        return walked;
    }

    // payloadType or payloadSize, clause 7.3.5: 0xFF bytes and one that is less, whose sum is their
    // value; the greatest that fits when it is more. False when the data ends before that.
    [[nodiscard]] bool byte_run(const char* /*last_byte*/, unsigned int& sum) {
        std::uint64_t total = 0;
        unsigned int byte = 0xFF;
        while (byte == 0xFF && holds(1, 8)) {
            byte = reader.get<unsigned int>(8);
            total += byte;
        }
        constexpr std::uint64_t largest = 0xFFFFFFFE;
        sum = static_cast<unsigned int>(std::min(total, largest));
        return byte != 0xFF;
    }

    // The messages that begin in the rest of the data, sei_message(), clause 7.3.5: the last one
    // may be cut off. A single byte at the end is none.
    [[nodiscard]] std::size_t count_messages() const {
        inlined_bitreader ahead = reader;
        const auto skip_byte_run = [&ahead] {
            std::uint64_t sum = 0;
            unsigned int byte = 0xFF;
            while (byte == 0xFF && ahead.bits_left() >= 8) {
                byte = ahead.get<unsigned int>(8);
                sum += byte;
            }
            return sum;
        };
        std::size_t count = 0;
        while (ahead.bits_left() >= 16) {
            ++count;
            skip_byte_run();
            ahead.skip_bytes(static_cast<std::size_t>(skip_byte_run()));
        }
        return count;
    }

    // What follows the last element of an SEI payload in its bytes, clause D.2.1: extension data,
    // and the bits that close it, which this walker leaves. False when there is no memory.
    template <class Flags>
    [[nodiscard, gnu::always_inline]] bool payload_end(
        element<Flags&> reserved_payload_extension_data) {
        return reader.bits_left() <= 0 || payload_bits_left() == 0 ||
               extension_data(reserved_payload_extension_data);
    }

    [[nodiscard]] bool more_rbsp_data() {
        return reader.bits_left() > 0 && reader.bits_to_stop_bit() != 0;
    }
    [[nodiscard]] bool rbsp_trailing_bits() { return reader.rbsp_trailing_bits(); }

    // A structure inside this one: `walk_fields` walks the record that it is given.
    template <class Structure, class WalkFields>
    [[nodiscard, gnu::always_inline]] bool structure(Structure nested, WalkFields&& walk_fields) {
        return std::forward<WalkFields>(walk_fields)(nested.field);
    }

    // A part of this structure whose elements the standard names with a prefix, and with the
    // indices of the part.
    template <class Part, class WalkFields>
    [[nodiscard, gnu::always_inline]] bool prefixed(const char* /*prefix*/, Part part,
                                                    WalkFields&& walk_fields) {
        return std::forward<WalkFields>(walk_fields)(part.field);
    }

    // Conditions without which reading cannot go on; descriptions return false where they do not
    // hold. A value has a limit:
    template <class Element, class Limit>
    [[nodiscard, gnu::always_inline]] bool at_most(const Element& target, Limit limit) {
        return !(target.field > limit);
    }

    // The rest of the data can hold what an element announces: entries of so many bits at the
    // least.
    template <class Element>
    [[nodiscard, gnu::always_inline]] bool data_holds(const Element& /*announced_by*/,
                                                      std::uint64_t entries,
                                                      unsigned int fewest_bits) {
        return Rules::data_may_end || holds(entries, fewest_bits);
    }

    // The valid parameter set that another one names. Not looked for where only ranges hang on it.
    template <class Store>
    [[nodiscard, gnu::always_inline]] auto* named_set(Store& stored, unsigned int id) {
        return Rules::needs_named_set ? find_valid_entry(stored, id) : nullptr;
    }

    // What a description returns when its store has no such parameter set.
    [[nodiscard]] bool missing(const char* /*parameter_set*/, unsigned int /*id*/) { return false; }

    // The end of a structure, all of whose elements have been walked. Sets `valid`, and returns it.
    template <class Flag>
    [[nodiscard, gnu::always_inline]] bool finish(Flag&& valid) {
        valid = Rules::data_may_end || holds(0, 0);
        return valid;
    }

    // The same for a structure that ends in rbsp_trailing_bits().
    [[nodiscard]] bool finish_rbsp(bool& valid) {
        if (Rules::trailing_bits_decide) {
            valid = rbsp_trailing_bits();
        } else {
            valid = holds(0, 0);
            static_cast<void>(rbsp_trailing_bits());
        }
        return valid;
    }

    // The same for a structure that ends in byte_alignment(), whose first bit must be there.
    [[nodiscard]] bool finish_aligned(bool& valid) {
        valid = holds(1, 1);
        reader.skip(1);
        reader.align();
        return valid;
    }
    [[nodiscard]] std::size_t byte_position() { return reader.bit_position() / 8; }

    // Fields that get their value without a read: flags, and others.
    template <class Flag>
    void set(Flag&& flag) {
        flag = true;
    }
    template <class Flag>
    void clear(Flag&& flag) {
        flag = false;
    }
    template <class Field, class Value>
    void assign(Field&& field, Value value) {
        field = static_cast<value_type<Field&&>>(value);
    }

    // Sizes arrays to a count that has been compared with its bound; false when there is no memory.
    template <class... Arrays>
    [[nodiscard, gnu::always_inline]] bool grow(std::size_t count, Arrays&... arrays) {
        if (!try_resize(count, arrays...)) {
            ran_out_of_memory_ = true;
            return false;
        }
        return true;
    }
    [[nodiscard]] bool ran_out_of_memory() const { return ran_out_of_memory_; }

    // Sizes arrays to a count that has no bound; throws when there is no memory.
    template <class... Arrays>
    void grow_or_throw(std::size_t count, Arrays&... arrays) {
        resize_or_throw(count, arrays...);
    }

protected:
    inlined_bitreader reader;

    // Whether what was read ends in the data, and leaves so many bits.
    [[nodiscard]] bool holds(std::uint64_t entries, unsigned int fewest_bits) const {
        const std::int64_t left = reader.bits_left();
        return left >= 0 && entries * fewest_bits <= static_cast<std::uint64_t>(left);
    }

    [[nodiscard]] bool payload_holds_all() const { return reader.bits_to_stop_bit() >= 0; }

private:
    // What a field holds, by its reference; a flag of a bit vector has an object in place of one.
    template <class Field>
    using value_type =
        std::conditional_t<std::is_lvalue_reference_v<Field>, std::remove_reference_t<Field>, bool>;

    // Up to 64 bits.
    [[nodiscard]] std::uint64_t wide_value(unsigned char width) {
        constexpr unsigned char low_bits = 32;
        if (width <= low_bits) {
            return reader.get<unsigned int>(width);
        }
        const std::uint64_t high =
            reader.get<unsigned int>(static_cast<unsigned char>(width - low_bits));
        return high << low_bits | reader.get<unsigned int>(low_bits);
    }

    // Of the next bytes; all of them when none is zero.
    [[nodiscard]] std::size_t bytes_before_zero(std::size_t count) const {
        if (count == 0) {
            return 0;
        }
        const unsigned char* const begin = reader.bytes();
        return static_cast<std::size_t>(std::find(begin, begin + count, 0) - begin);
    }

    template <class Element>
    static void store(Element& target, unsigned int value) {
        target.field = static_cast<value_type<decltype(target.field)>>(value);
    }

    h2645_common_bitreader* source_;  // null when nobody asks
    bool ran_out_of_memory_ = false;
};

}  // namespace kovran

#endif  // KOVRAN_SRC_H2645_COMMON_READING_H
