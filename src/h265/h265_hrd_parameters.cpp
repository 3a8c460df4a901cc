#include <kovran/h265/h265_hrd_parameters.h>

#include "h2645_common/reading.h"
#include "h265/h265_hrd_parameters.syntax.h"
#include "h265/reading_rules.h"

namespace kovran {

bool h265_hrd_parameters::parse(bool commonInfPresentFlag_, unsigned int maxNumSubLayersMinus1_,
                                h2645_common_bitreader& reader) {
    reading<own_rules> walk(reader);
    return hrd_parameters(walk, *this, commonInfPresentFlag_, maxNumSubLayersMinus1_);
}

bool h265_hrd_parameters::parse_standard(bool commonInfPresentFlag_,
                                         unsigned int maxNumSubLayersMinus1_,
                                         h2645_common_bitreader& reader) {
    *this = {};
    reading<standard_rules> walk(reader);
    return hrd_parameters(walk, *this, commonInfPresentFlag_, maxNumSubLayersMinus1_);
}

}  // namespace kovran
