#include <kovran/h265/h265_ref_pic_lists_modification.h>
#include <kovran/h265/h265_slice_segment_header.h>

#include "h265/h265_ref_pic_lists_modification.syntax.h"
#include "h265/parsing.h"

namespace kovran {
namespace {

auto description_of(h265_ref_pic_lists_modification& record,
                    const h265_slice_segment_header& header) {
    return
        [&record, &header](auto& walk) { return ref_pic_lists_modification(walk, record, header); };
}

}  // namespace

bool h265_ref_pic_lists_modification::parse(h2645_common_bitreader& reader,
                                            const h265_slice_segment_header& header) {
    return parse_by_own_rules(reader, description_of(*this, header));
}

bool h265_ref_pic_lists_modification::parse(h2645_common_bitreader& reader,
                                            const h265_slice_segment_header& header,
                                            h265_trace& trace, h265_fault* fault) {
    return parse_by_own_rules(reader, trace, fault, description_of(*this, header));
}

bool h265_ref_pic_lists_modification::parse_standard(h2645_common_bitreader& reader,
                                                     const h265_slice_segment_header& header,
                                                     h265_fault* fault) {
    return parse_by_standard(*this, reader, fault, description_of(*this, header));
}

bool h265_ref_pic_lists_modification::parse_standard(h2645_common_bitreader& reader,
                                                     const h265_slice_segment_header& header,
                                                     h265_trace& trace, h265_fault* fault) {
    return trace_by_standard(*this, reader, &trace, fault, description_of(*this, header));
}

}  // namespace kovran
