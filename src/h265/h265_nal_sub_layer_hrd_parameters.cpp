#include <kovran/h265/h265_hrd_parameters.h>
#include <kovran/h265/h265_nal_sub_layer_hrd_parameters.h>

#include "h265/h265_nal_sub_layer_hrd_parameters.syntax.h"
#include "h265/parsing.h"

namespace kovran {
namespace {

auto description_of(h265_nal_sub_layer_hrd_parameters& record, unsigned int subLayerId_,
                    unsigned int cpb_count_, const h265_hrd_parameters& hrd) {
    return [&record, subLayerId_, cpb_count_, &hrd](auto& walk) {
        return sub_layer_hrd_parameters(walk, record, subLayerId_, cpb_count_, hrd);
    };
}

}  // namespace

bool h265_nal_sub_layer_hrd_parameters::parse(unsigned int subLayerId_, unsigned int cpb_count_,
                                              const h265_hrd_parameters& hrd,
                                              h2645_common_bitreader& reader) {
    return parse_by_own_rules(reader, description_of(*this, subLayerId_, cpb_count_, hrd));
}

bool h265_nal_sub_layer_hrd_parameters::parse(unsigned int subLayerId_, unsigned int cpb_count_,
                                              const h265_hrd_parameters& hrd,
                                              h2645_common_bitreader& reader, h265_trace& trace,
                                              h265_fault* fault) {
    return parse_by_own_rules(reader, trace, fault,
                              description_of(*this, subLayerId_, cpb_count_, hrd));
}

bool h265_nal_sub_layer_hrd_parameters::parse_standard(unsigned int subLayerId_,
                                                       unsigned int cpb_count_,
                                                       const h265_hrd_parameters& hrd,
                                                       h2645_common_bitreader& reader,
                                                       h265_fault* fault) {
    return parse_by_standard(*this, reader, fault,
                             description_of(*this, subLayerId_, cpb_count_, hrd));
}

bool h265_nal_sub_layer_hrd_parameters::parse_standard(unsigned int subLayerId_,
                                                       unsigned int cpb_count_,
                                                       const h265_hrd_parameters& hrd,
                                                       h2645_common_bitreader& reader,
                                                       h265_trace& trace, h265_fault* fault) {
    return trace_by_standard(*this, reader, &trace, fault,
                             description_of(*this, subLayerId_, cpb_count_, hrd));
}

}  // namespace kovran
