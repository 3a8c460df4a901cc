#include <kovran/h265/h265_nal_sps.h>
#include <kovran/h265/h265_video_format.h>
#include <kovran/h265/h265_vui_parameters.h>

#include "h265/h265_vui_parameters.syntax.h"
#include "h265/parsing.h"

#include <array>

namespace kovran {
namespace {

// aspect_ratio_idc 0 to 16, table E.1.
constexpr std::array<h265_sample_aspect_ratio, 17> sample_aspect_ratios = {{
    {0, 0},
    {1, 1},
    {12, 11},
    {10, 11},
    {16, 11},
    {40, 33},
    {24, 11},
    {20, 11},
    {32, 11},
    {80, 33},
    {18, 11},
    {15, 11},
    {64, 33},
    {160, 99},
    {4, 3},
    {3, 2},
    {2, 1},
}};

auto description_of(h265_vui_parameters& record, h265_nal_sps& sps) {
    return [&record, &sps](auto& walk) { return vui_parameters(walk, record, sps); };
}

}  // namespace

bool h265_vui_parameters::parse(h2645_common_bitreader& reader, h265_nal_sps& sps) {
    return parse_by_own_rules(reader, description_of(*this, sps));
}

bool h265_vui_parameters::parse(h2645_common_bitreader& reader, h265_nal_sps& sps,
                                h265_trace& trace, h265_fault* fault) {
    return parse_by_own_rules(reader, trace, fault, description_of(*this, sps));
}

bool h265_vui_parameters::parse_standard(h2645_common_bitreader& reader, h265_nal_sps& sps,
                                         h265_fault* fault) {
    return parse_by_standard(*this, reader, fault, description_of(*this, sps));
}

bool h265_vui_parameters::parse_standard(h2645_common_bitreader& reader, h265_nal_sps& sps,
                                         h265_trace& trace, h265_fault* fault) {
    return trace_by_standard(*this, reader, &trace, fault, description_of(*this, sps));
}

const char* h265_vui_parameters::video_format_to_str() const {
    return h265_video_format_to_str(static_cast<h265_video_format>(video_format));
}

h265_sample_aspect_ratio h265_sample_aspect_ratio_of(unsigned char aspect_ratio_idc) {
    return sample_aspect_ratios[aspect_ratio_idc < sample_aspect_ratios.size() ? aspect_ratio_idc
                                                                               : 0];
}

}  // namespace kovran
