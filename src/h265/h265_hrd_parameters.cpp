#include <kovran/h265/h265_hrd_parameters.h>

#include "h265/h265_hrd_parameters.syntax.h"
#include "h265/parsing.h"

namespace kovran {
namespace {

auto description_of(h265_hrd_parameters& record, bool commonInfPresentFlag_,
                    unsigned int maxNumSubLayersMinus1_) {
    return [&record, commonInfPresentFlag_, maxNumSubLayersMinus1_](auto& walk) {
        return hrd_parameters(walk, record, commonInfPresentFlag_, maxNumSubLayersMinus1_);
    };
}

}  // namespace

bool h265_hrd_parameters::parse(bool commonInfPresentFlag_, unsigned int maxNumSubLayersMinus1_,
                                h2645_common_bitreader& reader) {
    return parse_by_own_rules(reader,
                              description_of(*this, commonInfPresentFlag_, maxNumSubLayersMinus1_));
}

bool h265_hrd_parameters::parse(bool commonInfPresentFlag_, unsigned int maxNumSubLayersMinus1_,
                                h2645_common_bitreader& reader, h265_trace& trace,
                                h265_fault* fault) {
    return parse_by_own_rules(reader, trace, fault,
                              description_of(*this, commonInfPresentFlag_, maxNumSubLayersMinus1_));
}

bool h265_hrd_parameters::parse_standard(bool commonInfPresentFlag_,
                                         unsigned int maxNumSubLayersMinus1_,
                                         h2645_common_bitreader& reader, h265_fault* fault) {
    return parse_by_standard(*this, reader, fault,
                             description_of(*this, commonInfPresentFlag_, maxNumSubLayersMinus1_));
}

bool h265_hrd_parameters::parse_standard(bool commonInfPresentFlag_,
                                         unsigned int maxNumSubLayersMinus1_,
                                         h2645_common_bitreader& reader, h265_trace& trace,
                                         h265_fault* fault) {
    return trace_by_standard(*this, reader, &trace, fault,
                             description_of(*this, commonInfPresentFlag_, maxNumSubLayersMinus1_));
}

}  // namespace kovran
