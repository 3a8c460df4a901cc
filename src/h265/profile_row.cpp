#include "h265/profile_row.h"

#include <cstddef>
#include <tuple>

namespace kovran {
namespace {

// Of the profiles that their number tells alone.
constexpr unsigned int any_chroma = 3;
constexpr unsigned int any_depth = 16;

// Tables A.2, A.3, A.5 and A.7, clauses G.11, H.11 and I.11.
constexpr profile_row rows[] = {
    {1, "Main", any_chroma, any_depth, false, false, 1000, 1100},
    {2, "Main 10", any_chroma, any_depth, false, false, 1000, 1100},
    {2, "Main 10 Still Picture", any_chroma, any_depth, false, true, 1000, 1100},
    {3, "Main Still Picture", any_chroma, any_depth, false, false, 1000, 1100},
    {4, "Monochrome", 0, 8, false, false, 667, 733},
    {4, "Monochrome 10", 0, 10, false, false, 833, 917},
    {4, "Monochrome 12", 0, 12, false, false, 1000, 1100},
    {4, "Monochrome 16", 0, 16, false, false, 1333, 1467},
    {4, "Main 12", 1, 12, false, false, 1500, 1650},
    {4, "Main 4:2:2 10", 2, 10, false, false, 1667, 1833},
    {4, "Main 4:2:2 12", 2, 12, false, false, 2000, 2200},
    {4, "Main 4:4:4", 3, 8, false, false, 2000, 2200},
    {4, "Main 4:4:4 10", 3, 10, false, false, 2500, 2750},
    {4, "Main 4:4:4 12", 3, 12, false, false, 3000, 3300},
    {4, "Main Intra", 1, 8, true, false, 1000, 1100},
    {4, "Main 10 Intra", 1, 10, true, false, 1000, 1100},
    {4, "Main 12 Intra", 1, 12, true, false, 1500, 1650},
    {4, "Main 4:2:2 10 Intra", 2, 10, true, false, 1667, 1833},
    {4, "Main 4:2:2 12 Intra", 2, 12, true, false, 2000, 2200},
    {4, "Main 4:4:4 Intra", 3, 8, true, false, 2000, 2200},
    {4, "Main 4:4:4 10 Intra", 3, 10, true, false, 2500, 2750},
    {4, "Main 4:4:4 12 Intra", 3, 12, true, false, 3000, 3300},
    {4, "Main 4:4:4 16 Intra", 3, 16, true, false, 4000, 4400},
    {4, "Main 4:4:4 Still Picture", 3, 8, true, true, 2000, 2200},
    {4, "Main 4:4:4 16 Still Picture", 3, 16, true, true, 4000, 4400},
    {5, "High Throughput 4:4:4", 3, 8, false, false, 0, 0},
    {5, "High Throughput 4:4:4 10", 3, 10, false, false, 0, 0},
    {5, "High Throughput 4:4:4 14", 3, 14, false, false, 0, 0},
    {5, "High Throughput 4:4:4 16 Intra", 3, 16, true, false, 0, 0},
    {6, "Multiview Main", any_chroma, any_depth, false, false, 0, 0},
    {7, "Scalable Main", 1, 8, false, false, 0, 0},
    {7, "Scalable Main 10", 1, 10, false, false, 0, 0},
    {8, "3D Main", any_chroma, any_depth, false, false, 0, 0},
    {9, "Screen-Extended Main", 1, 8, false, false, 0, 0},
    {9, "Screen-Extended Main 10", 1, 10, false, false, 0, 0},
    {9, "Screen-Extended Main 4:4:4", 3, 8, false, false, 0, 0},
    {9, "Screen-Extended Main 4:4:4 10", 3, 10, false, false, 0, 0},
    {10, "Scalable Monochrome", 0, 8, false, false, 0, 0},
    {10, "Scalable Monochrome 12", 0, 12, false, false, 0, 0},
    {10, "Scalable Monochrome 16", 0, 16, false, false, 0, 0},
    {10, "Scalable Main 4:4:4", 3, 8, false, false, 0, 0},
    {11, "Screen-Extended High Throughput 4:4:4", 3, 8, false, false, 0, 0},
    {11, "Screen-Extended High Throughput 4:4:4 10", 3, 10, false, false, 0, 0},
    {11, "Screen-Extended High Throughput 4:4:4 14", 3, 14, false, false, 0, 0},
    {12, "Multiview Extended", any_chroma, any_depth, false, false, 0, 0},
    {13, "Multiview Extended 10", any_chroma, any_depth, false, false, 0, 0},
};

unsigned int chroma_of(const h265_profile_tier_level::layer_t& layer) {
    if (layer.max_monochrome_constraint_flag) {
        return 0;
    }
    if (layer.max_420chroma_constraint_flag) {
        return 1;
    }
    return layer.max_422chroma_constraint_flag ? 2 : 3;
}

unsigned int bit_depth_of(const h265_profile_tier_level::layer_t& layer) {
    if (layer.max_8bit_constraint_flag) {
        return 8;
    }
    if (layer.max_10bit_constraint_flag) {
        return 10;
    }
    if (layer.max_12bit_constraint_flag) {
        return 12;
    }
    return layer.max_14bit_constraint_flag ? 14 : 16;
}

bool allows(const profile_row& row, const h265_profile_tier_level::layer_t& layer) {
    return row.chroma >= chroma_of(layer) && row.bit_depth >= bit_depth_of(layer) &&
           (!row.is_intra || layer.intra_constraint_flag) &&
           (!row.is_one_picture || layer.one_picture_only_constraint_flag);
}

bool is_less_capable(const profile_row& row, const profile_row& other) {
    const auto rank = [](const profile_row& each) {
        return std::make_tuple(each.chroma, each.bit_depth, !each.is_one_picture, !each.is_intra);
    };
    return rank(row) < rank(other);
}

// The least capable profile of that number that allows what the flags allow.
const profile_row* find_profile(std::size_t profile,
                                const h265_profile_tier_level::layer_t& layer) {
    const profile_row* best = nullptr;
    for (const profile_row& row : rows) {
        if (row.profile_idc == profile && allows(row, layer) &&
            (best == nullptr || is_less_capable(row, *best))) {
            best = &row;
        }
    }
    return best;
}

}  // namespace

const profile_row* find_profile(const h265_profile_tier_level::layer_t& layer) {
    if (layer.profile_space != 0) {
        return nullptr;
    }
    if (const profile_row* const row = find_profile(layer.profile_idc, layer); row != nullptr) {
        return row;
    }
    const auto& compatible = layer.profile_compatibility_flag;
    // A still picture is told by its own flag, as it has those of Main and Main 10 as well.
    constexpr std::size_t still_picture = 3;
    if (still_picture < compatible.size() && compatible[still_picture]) {
        return find_profile(still_picture, layer);
    }
    for (std::size_t profile = 1; profile < compatible.size(); ++profile) {
        if (compatible[profile]) {
            if (const profile_row* const row = find_profile(profile, layer); row != nullptr) {
                return row;
            }
        }
    }
    return nullptr;
}

}  // namespace kovran
