#ifndef KOVRAN_SRC_H265_EXTENSIONS_OR_DATA_H
#define KOVRAN_SRC_H265_EXTENSIONS_OR_DATA_H

#include "h2645_common/element.h"

namespace kovran {

// What follows the extension flag of an SPS or a PPS: extensions that the standard defines, and
// extension data. The data also gets what is neither, so that no bit is lost: everything that
// follows where that cannot be read as the extensions that its flags announce, or what these leave
// before the trailing bits. False when there is no memory.
template <class Walker, class ParameterSet, class Flags, class WalkExtensions>
[[nodiscard]] bool extensions_or_data(Walker& walk, ParameterSet& parameter_set,
                                      element<Flags&> extension_data_flag,
                                      const WalkExtensions& walk_extensions) {
    if (!walk.attempt(walk_extensions)) {
        drop_extensions(parameter_set);
    } else if (walk.payload_bits_left() == 0) {
        return true;
    }
    walk.unknown_extension();
    return !walk.ran_out_of_memory() && walk.extension_data(extension_data_flag);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_EXTENSIONS_OR_DATA_H
