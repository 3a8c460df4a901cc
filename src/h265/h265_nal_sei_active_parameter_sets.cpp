#include <kovran/h265/h265_nal_sei_active_parameter_sets.h>

#include "h2645_common/reading.h"
#include "h265/h265_nal_sei_active_parameter_sets.syntax.h"
#include "h265/reading_rules.h"

namespace kovran {

bool h265_nal_sei_active_parameter_sets::parse(h2645_common_bitreader& reader,
                                               h2645_common_base_store<h265_nal_vps>& vps_store) {
    reading<own_rules> walk(reader);
    return active_parameter_sets(walk, *this, vps_store);
}

bool h265_nal_sei_active_parameter_sets::parse_standard(
    h2645_common_bitreader& reader, h2645_common_base_store<h265_nal_vps>& vps_store) {
    *this = {};
    reading<standard_rules> walk(reader);
    return active_parameter_sets(walk, *this, vps_store);
}

}  // namespace kovran
