#include <kovran/h265/h265_nal_pps.h>

#include "h2645_common/reading.h"
#include "h265/h265_nal_pps.syntax.h"
#include "h265/reading_rules.h"

namespace kovran {

bool h265_nal_pps::parse(h2645_common_bitreader& reader,
                         h2645_common_base_store<h265_nal_sps>& sps_store) {
    reading<own_rules> walk(reader);
    return pic_parameter_set_rbsp(walk, *this, sps_store);
}

bool h265_nal_pps::parse_standard(h2645_common_bitreader& reader,
                                  h2645_common_base_store<h265_nal_sps>& sps_store) {
    *this = {};
    reading<standard_rules> walk(reader);
    return pic_parameter_set_rbsp(walk, *this, sps_store);
}

}  // namespace kovran
