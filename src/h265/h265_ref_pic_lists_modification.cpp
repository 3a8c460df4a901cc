#include <kovran/h265/h265_ref_pic_lists_modification.h>
#include <kovran/h265/h265_slice_segment_header.h>

#include "h2645_common/reading.h"
#include "h265/h265_ref_pic_lists_modification.syntax.h"
#include "h265/reading_rules.h"

namespace kovran {

bool h265_ref_pic_lists_modification::parse(h2645_common_bitreader& reader,
                                            const h265_slice_segment_header& header) {
    reading<own_rules> walk(reader);
    return ref_pic_lists_modification(walk, *this, header);
}

bool h265_ref_pic_lists_modification::parse_standard(h2645_common_bitreader& reader,
                                                     const h265_slice_segment_header& header) {
    *this = {};
    reading<standard_rules> walk(reader);
    return ref_pic_lists_modification(walk, *this, header);
}

}  // namespace kovran
