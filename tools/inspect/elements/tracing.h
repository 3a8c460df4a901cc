#ifndef KOVRAN_TOOLS_INSPECT_ELEMENTS_TRACING_H
#define KOVRAN_TOOLS_INSPECT_ELEMENTS_TRACING_H

#include <kovran/h2645_common/h2645_common_bitreader.h>

#include "h2645_common/element.h"
#include "h2645_common/reading.h"

#include "elements/trace_sink.h"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

namespace kovran::inspect {

// The walker that fills a record as parse() does and tells a sink of every element on the way. Past
// the end of the data the bits are 0 for as long as a record asks for them, which can be millions
// of elements after a dozen bytes; the sink hears only of those that begin in the data.
template <class Rules>
class tracing : public reading<Rules> {
public:
    tracing(h2645_common_bitreader& source, trace_sink& sink)
        : reading<Rules>(source),
          sink_(sink),
          bits_of_data_(8 * static_cast<std::size_t>(source.end - source.start)) {}

    template <class Field>
    void u(unsigned char width, element<Field> target) {
        const std::size_t bit = this->reader.bit_position();
        reading<Rules>::u(width, target);
        tell(target, "u(n)", bit);
    }

    template <class Field>
    void u_v(unsigned char width, element<Field> target) {
        const std::size_t bit = this->reader.bit_position();
        reading<Rules>::u_v(width, target);
        tell(target, "u(v)", bit);
    }

    template <class Field>
    void ue(element<Field> target) {
        const std::size_t bit = this->reader.bit_position();
        reading<Rules>::ue(target);
        tell(target, "ue(v)", bit);
    }

    template <class Field>
    void se(element<Field> target) {
        const std::size_t bit = this->reader.bit_position();
        reading<Rules>::se(target);
        tell(target, "se(v)", bit);
    }

    void skip(unsigned int width, const char* name) {
        skip_bits(width, {prefix_ + name, indices_});
    }
    void skip(unsigned int width, const char* name, std::size_t index) {
        indexed_name full = {prefix_ + name, indices_};
        full.indices.push_back(index);
        skip_bits(width, full);
    }

    void extension_data(const char* name) {
        const std::size_t bit = this->reader.bit_position();
        reading<Rules>::extension_data(name);
        if (this->reader.bit_position() != bit) {
            sink_.read({{name, {}}, "u(1)", bit, this->reader.bit_position() - bit, 0});
        }
    }

    [[nodiscard]] bool rbsp_trailing_bits() {
        h2645_common_bitreader bits = this->reader;
        trailing_bit("rbsp_stop_one_bit", bits);
        while (bits.bits_to_byte_boundary() != 0) {
            trailing_bit("rbsp_alignment_zero_bit", bits);
        }
        return reading<Rules>::rbsp_trailing_bits();
    }

    // The standard has no structure for the general layer and the sub-layers of
    // profile_tier_level(): it puts the layer into the names of the elements.
    template <class Record, class WalkFields>
    [[nodiscard]] bool structure(element<Record> nested, WalkFields&& walk_fields) {
        const std::string_view name = nested.name;
        if (name == "general" || name == "sub_layers") {
            prefix_ = name == "general" ? "general_" : "sub_layer_";
            indices_ = indices_of(nested);
            const bool walked = std::forward<WalkFields>(walk_fields)(nested.field);
            prefix_.clear();
            indices_.clear();
            return walked;
        }
        sink_.begin_structure({nested.name, indices_of(nested)});
        const bool walked = std::forward<WalkFields>(walk_fields)(nested.field);
        sink_.end_structure();
        return walked;
    }

private:
    template <class Field>
    static std::vector<std::size_t> indices_of(const element<Field>& target) {
        const auto begin = target.indices.value.begin();
        return {begin, begin + static_cast<std::ptrdiff_t>(target.indices.count)};
    }

    template <class Field>
    void tell(const element<Field>& target, const char* descriptor, std::size_t bit) {
        if (bit >= bits_of_data_) {
            return;
        }
        indexed_name name = {prefix_ + target.name, indices_};
        const std::vector<std::size_t> own = indices_of(target);
        name.indices.insert(name.indices.end(), own.begin(), own.end());
        sink_.read({std::move(name), descriptor, bit, this->reader.bit_position() - bit,
                    static_cast<std::int64_t>(target.field)});
    }

    void skip_bits(unsigned int width, indexed_name name) {
        const std::size_t bit = this->reader.bit_position();
        std::int64_t value = 0;
        for (unsigned int i = 0; i < width; ++i) {
            value = value << 1 | this->reader.get_wide(1);
        }
        if (bit >= bits_of_data_) {
            return;
        }
        sink_.read({std::move(name), "u(n)", bit, width, value});
    }

    void trailing_bit(const char* name, h2645_common_bitreader& bits) {
        const std::size_t bit = bits.bit_position();
        const unsigned int value = bits.get<unsigned int>(1);
        if (bit < bits_of_data_) {
            sink_.read({{name, {}}, "f(1)", bit, 1, value});
        }
    }

    trace_sink& sink_;
    std::size_t bits_of_data_;

    // Of the layer of profile_tier_level() that is being walked.
    std::string prefix_;
    std::vector<std::size_t> indices_;
};

}  // namespace kovran::inspect

#endif  // KOVRAN_TOOLS_INSPECT_ELEMENTS_TRACING_H
