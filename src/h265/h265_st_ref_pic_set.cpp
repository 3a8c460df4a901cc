#include <kovran/h265/h265_nal_sps.h>
#include <kovran/h265/h265_st_ref_pic_set.h>

#include "h2645_common/reading.h"
#include "h265/h265_st_ref_pic_set.syntax.h"
#include "h265/reading_rules.h"

namespace kovran {

bool h265_st_ref_pic_set::parse(h2645_common_bitreader& reader, const h265_nal_sps& sps,
                                unsigned int idx, const std::vector<h265_st_ref_pic_set>& sets) {
    reading<own_rules> walk(reader);
    return st_ref_pic_set(walk, *this, sps, idx, sets);
}

bool h265_st_ref_pic_set::parse_standard(h2645_common_bitreader& reader, const h265_nal_sps& sps,
                                         unsigned int idx,
                                         const std::vector<h265_st_ref_pic_set>& sets) {
    *this = {};
    reading<standard_rules> walk(reader);
    return st_ref_pic_set(walk, *this, sps, idx, sets);
}

}  // namespace kovran
