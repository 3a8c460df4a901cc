#include <kovran/h265/h265_nal_sps.h>
#include <kovran/h265/h265_st_ref_pic_set.h>

#include "h265/h265_st_ref_pic_set.syntax.h"
#include "h265/parsing.h"

namespace kovran {
namespace {

auto description_of(h265_st_ref_pic_set& record, const h265_nal_sps& sps, unsigned int idx,
                    const std::vector<h265_st_ref_pic_set>& sets) {
    return [&record, &sps, idx, &sets](auto& walk) {
        return st_ref_pic_set(walk, record, sps, idx, sets);
    };
}

}  // namespace

bool h265_st_ref_pic_set::parse(h2645_common_bitreader& reader, const h265_nal_sps& sps,
                                unsigned int idx, const std::vector<h265_st_ref_pic_set>& sets) {
    return parse_by_own_rules(reader, description_of(*this, sps, idx, sets));
}

bool h265_st_ref_pic_set::parse(h2645_common_bitreader& reader, const h265_nal_sps& sps,
                                unsigned int idx, const std::vector<h265_st_ref_pic_set>& sets,
                                h265_trace& trace, h265_fault* fault) {
    return parse_by_own_rules(reader, trace, fault, description_of(*this, sps, idx, sets));
}

bool h265_st_ref_pic_set::parse_standard(h2645_common_bitreader& reader, const h265_nal_sps& sps,
                                         unsigned int idx,
                                         const std::vector<h265_st_ref_pic_set>& sets,
                                         h265_fault* fault) {
    return parse_by_standard(*this, reader, fault, description_of(*this, sps, idx, sets));
}

bool h265_st_ref_pic_set::parse_standard(h2645_common_bitreader& reader, const h265_nal_sps& sps,
                                         unsigned int idx,
                                         const std::vector<h265_st_ref_pic_set>& sets,
                                         h265_trace& trace, h265_fault* fault) {
    return trace_by_standard(*this, reader, &trace, fault, description_of(*this, sps, idx, sets));
}

}  // namespace kovran
