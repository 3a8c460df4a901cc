#ifndef KOVRAN_SRC_H2645_COMMON_READING_H
#define KOVRAN_SRC_H2645_COMMON_READING_H

#include <kovran/h2645_common/h2645_common_bitreader.h>

#include "h2645_common/element.h"

namespace kovran {

// The walker that fills a record from a bit reader: what every parse() walks its description with.
class reading {
public:
    explicit reading(h2645_common_bitreader& source) : reader(source) {}

    template <class Field>
    void u(unsigned char width, element<Field> target) {
        target.field = static_cast<Field>(reader.get<unsigned int>(width));
    }

    void align() { reader.align(); }

    [[nodiscard]] bool rbsp_trailing_bits() {
        return h2645_common_skip_rbsp_trailing_bits(reader);
    }

private:
    h2645_common_bitreader& reader;
};

}  // namespace kovran

#endif  // KOVRAN_SRC_H2645_COMMON_READING_H
