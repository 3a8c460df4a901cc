#include <kovran/h265/h265_profile_tier_level.h>

#include "h265/h265_profile_tier_level.syntax.h"
#include "h265/parsing.h"

namespace kovran {
namespace {

auto description_of(h265_profile_tier_level::layer_t& record) {
    return [&record](auto& walk) { return profile_tier_level_layer(walk, record); };
}

auto description_of(h265_profile_tier_level& record, bool profilePresentFlag,
                    unsigned int maxNumSubLayersMinus1) {
    return [&record, profilePresentFlag, maxNumSubLayersMinus1](auto& walk) {
        return profile_tier_level(walk, record, profilePresentFlag, maxNumSubLayersMinus1);
    };
}

}  // namespace

bool h265_profile_tier_level::layer_t::parse(h2645_common_bitreader& reader) {
    return parse_by_own_rules(reader, description_of(*this));
}

bool h265_profile_tier_level::layer_t::parse(h2645_common_bitreader& reader, h265_trace& trace,
                                             h265_fault* fault) {
    return parse_by_own_rules(reader, trace, fault, description_of(*this));
}

bool h265_profile_tier_level::parse(bool profilePresentFlag, unsigned int maxNumSubLayersMinus1,
                                    h2645_common_bitreader& reader) {
    return parse_by_own_rules(reader,
                              description_of(*this, profilePresentFlag, maxNumSubLayersMinus1));
}

bool h265_profile_tier_level::parse(bool profilePresentFlag, unsigned int maxNumSubLayersMinus1,
                                    h2645_common_bitreader& reader, h265_trace& trace,
                                    h265_fault* fault) {
    return parse_by_own_rules(reader, trace, fault,
                              description_of(*this, profilePresentFlag, maxNumSubLayersMinus1));
}

bool h265_profile_tier_level::parse_standard(bool profilePresentFlag,
                                             unsigned int maxNumSubLayersMinus1,
                                             h2645_common_bitreader& reader, h265_fault* fault) {
    return parse_by_standard(*this, reader, fault,
                             description_of(*this, profilePresentFlag, maxNumSubLayersMinus1));
}

bool h265_profile_tier_level::parse_standard(bool profilePresentFlag,
                                             unsigned int maxNumSubLayersMinus1,
                                             h2645_common_bitreader& reader, h265_trace& trace,
                                             h265_fault* fault) {
    return trace_by_standard(*this, reader, &trace, fault,
                             description_of(*this, profilePresentFlag, maxNumSubLayersMinus1));
}

}  // namespace kovran
