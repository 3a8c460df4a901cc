#include <kovran/h265/h265_nal_vps.h>

#include "h2645_common/reading.h"
#include "h265/h265_nal_vps.syntax.h"
#include "h265/reading_rules.h"

namespace kovran {

bool h265_nal_vps::parse(h2645_common_bitreader& reader) {
    reading<own_rules> walk(reader);
    return video_parameter_set_rbsp(walk, *this);
}

bool h265_nal_vps::parse_standard(h2645_common_bitreader& reader) {
    *this = {};
    reading<standard_rules> walk(reader);
    return video_parameter_set_rbsp(walk, *this);
}

}  // namespace kovran
