#include <kovran/h265/h265_pred_weight_table.h>

#include <algorithm>
#include <cstdint>

namespace kovran {
namespace {

// 2^log2_denom + delta, with denominators that are larger than any stream may have cut off.
std::int64_t weight(std::int64_t log2_denom, int delta) {
    return (std::int64_t{1} << log2_denom) + delta;
}

std::int64_t bounded(std::int64_t log2_denom) {
    return std::clamp<std::int64_t>(log2_denom, 0, 7);
}

std::int64_t luma_log2_denom(const h265_pred_weight_table& table) {
    return bounded(table.luma_log2_weight_denom);
}

// ChromaLog2WeightDenom.
std::int64_t chroma_log2_denom(const h265_pred_weight_table& table) {
    return bounded(std::int64_t{table.luma_log2_weight_denom} +
                   table.delta_chroma_log2_weight_denom);
}

// Equation 7-56.
int chroma_offset(std::int64_t log2_denom, int delta_weight, int delta_offset,
                  int wpOffsetHalfRangeC) {
    const std::int64_t half = wpOffsetHalfRangeC;
    const std::int64_t scaled = (half * weight(log2_denom, delta_weight)) >> log2_denom;
    return static_cast<int>(std::max(-half, std::min(half - 1, half + delta_offset - scaled)));
}

}  // namespace

std::int64_t h265_pred_weight_table::LumaWeightL0(std::size_t entry) const {
    return weight(luma_log2_denom(*this), delta_luma_weight_l0[entry]);
}

std::int64_t h265_pred_weight_table::LumaWeightL1(std::size_t entry) const {
    return weight(luma_log2_denom(*this), delta_luma_weight_l1[entry]);
}

std::int64_t h265_pred_weight_table::ChromaWeightL0(std::size_t entry,
                                                    std::size_t component) const {
    return weight(chroma_log2_denom(*this), delta_chroma_weight_l0[entry][component]);
}

std::int64_t h265_pred_weight_table::ChromaWeightL1(std::size_t entry,
                                                    std::size_t component) const {
    return weight(chroma_log2_denom(*this), delta_chroma_weight_l1[entry][component]);
}

int h265_pred_weight_table::ChromaOffsetL0(std::size_t entry, std::size_t component,
                                           int wpOffsetHalfRangeC) const {
    return chroma_offset(chroma_log2_denom(*this), delta_chroma_weight_l0[entry][component],
                         delta_chroma_offset_l0[entry][component], wpOffsetHalfRangeC);
}

int h265_pred_weight_table::ChromaOffsetL1(std::size_t entry, std::size_t component,
                                           int wpOffsetHalfRangeC) const {
    return chroma_offset(chroma_log2_denom(*this), delta_chroma_weight_l1[entry][component],
                         delta_chroma_offset_l1[entry][component], wpOffsetHalfRangeC);
}

}  // namespace kovran
