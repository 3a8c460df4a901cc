#include <kovran/h265/h265_profile_name.h>

#include "h265/profile_row.h"

namespace kovran {

const char* h265_profile_name(const h265_profile_tier_level::layer_t& layer) {
    const profile_row* const row = find_profile(layer);
    return row != nullptr ? row->name : "";
}

}  // namespace kovran
