#include <kovran/h265/h265_nal_sps.h>
#include <kovran/h265/h265_video_format.h>
#include <kovran/h265/h265_vui_parameters.h>

#include "h2645_common/reading.h"
#include "h265/h265_vui_parameters.syntax.h"
#include "h265/reading_rules.h"

namespace kovran {

bool h265_vui_parameters::parse(h2645_common_bitreader& reader, h265_nal_sps& sps) {
    reading<own_rules> walk(reader);
    return vui_parameters(walk, *this, sps);
}

bool h265_vui_parameters::parse_standard(h2645_common_bitreader& reader, h265_nal_sps& sps) {
    *this = {};
    reading<standard_rules> walk(reader);
    return vui_parameters(walk, *this, sps);
}

const char* h265_vui_parameters::video_format_to_str() const {
    return h265_video_format_to_str(static_cast<h265_video_format>(video_format));
}

}  // namespace kovran
