#include <kovran/h265/h265_hrd_parameters.h>
#include <kovran/h265/h265_nal_sub_layer_hrd_parameters.h>

#include "h2645_common/reading.h"
#include "h265/h265_nal_sub_layer_hrd_parameters.syntax.h"
#include "h265/reading_rules.h"

namespace kovran {

bool h265_nal_sub_layer_hrd_parameters::parse(unsigned int subLayerId_, unsigned int cpb_count_,
                                              const h265_hrd_parameters& hrd,
                                              h2645_common_bitreader& reader) {
    reading<own_rules> walk(reader);
    return sub_layer_hrd_parameters(walk, *this, subLayerId_, cpb_count_, hrd);
}

bool h265_nal_sub_layer_hrd_parameters::parse_standard(unsigned int subLayerId_,
                                                       unsigned int cpb_count_,
                                                       const h265_hrd_parameters& hrd,
                                                       h2645_common_bitreader& reader) {
    *this = {};
    reading<standard_rules> walk(reader);
    return sub_layer_hrd_parameters(walk, *this, subLayerId_, cpb_count_, hrd);
}

}  // namespace kovran
