#include <kovran/h265/h265_scaling_list_data.h>

#include "h2645_common/reading.h"
#include "h265/h265_scaling_list_data.syntax.h"
#include "h265/reading_rules.h"

namespace kovran {

bool h265_scaling_list_data::parse(h2645_common_bitreader& reader) {
    reading<own_rules> walk(reader);
    return scaling_list_data(walk, *this);
}

bool h265_scaling_list_data::parse_standard(h2645_common_bitreader& reader) {
    *this = {};
    reading<standard_rules> walk(reader);
    return scaling_list_data(walk, *this);
}

}  // namespace kovran
