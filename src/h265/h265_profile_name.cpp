#include <kovran/h265/h265_profile_name.h>

#include <cstddef>
#include <iterator>
#include <tuple>

namespace kovran {
namespace {

// A profile that constraint flags tell from others of its profile_idc: the chroma formats up to
// this chroma_format_idc, the deepest samples, whether all pictures are intra, and whether there is
// only one. Tables A.2, A.3, A.5 and A.7, clauses G.11, H.11 and I.11.
struct profile_row {
    unsigned int profile_idc;
    const char* name;
    unsigned int chroma;
    unsigned int bit_depth;
    bool is_intra;
    bool is_one_picture;
};

constexpr profile_row rows[] = {
    {4, "Monochrome", 0, 8, false, false},
    {4, "Monochrome 10", 0, 10, false, false},
    {4, "Monochrome 12", 0, 12, false, false},
    {4, "Monochrome 16", 0, 16, false, false},
    {4, "Main 12", 1, 12, false, false},
    {4, "Main 4:2:2 10", 2, 10, false, false},
    {4, "Main 4:2:2 12", 2, 12, false, false},
    {4, "Main 4:4:4", 3, 8, false, false},
    {4, "Main 4:4:4 10", 3, 10, false, false},
    {4, "Main 4:4:4 12", 3, 12, false, false},
    {4, "Main Intra", 1, 8, true, false},
    {4, "Main 10 Intra", 1, 10, true, false},
    {4, "Main 12 Intra", 1, 12, true, false},
    {4, "Main 4:2:2 10 Intra", 2, 10, true, false},
    {4, "Main 4:2:2 12 Intra", 2, 12, true, false},
    {4, "Main 4:4:4 Intra", 3, 8, true, false},
    {4, "Main 4:4:4 10 Intra", 3, 10, true, false},
    {4, "Main 4:4:4 12 Intra", 3, 12, true, false},
    {4, "Main 4:4:4 16 Intra", 3, 16, true, false},
    {4, "Main 4:4:4 Still Picture", 3, 8, true, true},
    {4, "Main 4:4:4 16 Still Picture", 3, 16, true, true},
    {5, "High Throughput 4:4:4", 3, 8, false, false},
    {5, "High Throughput 4:4:4 10", 3, 10, false, false},
    {5, "High Throughput 4:4:4 14", 3, 14, false, false},
    {5, "High Throughput 4:4:4 16 Intra", 3, 16, true, false},
    {6, "Multiview Main", 1, 8, false, false},
    {7, "Scalable Main", 1, 8, false, false},
    {7, "Scalable Main 10", 1, 10, false, false},
    {8, "3D Main", 1, 8, false, false},
    {9, "Screen-Extended Main", 1, 8, false, false},
    {9, "Screen-Extended Main 10", 1, 10, false, false},
    {9, "Screen-Extended Main 4:4:4", 3, 8, false, false},
    {9, "Screen-Extended Main 4:4:4 10", 3, 10, false, false},
    {10, "Scalable Monochrome", 0, 8, false, false},
    {10, "Scalable Monochrome 12", 0, 12, false, false},
    {10, "Scalable Monochrome 16", 0, 16, false, false},
    {10, "Scalable Main 4:4:4", 3, 8, false, false},
    {11, "Screen-Extended High Throughput 4:4:4", 3, 8, false, false},
    {11, "Screen-Extended High Throughput 4:4:4 10", 3, 10, false, false},
    {11, "Screen-Extended High Throughput 4:4:4 14", 3, 14, false, false},
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

// Null when no profile of that number allows what the flags allow.
const char* name_by_flags(unsigned int profile, const h265_profile_tier_level::layer_t& layer) {
    const profile_row* best = nullptr;
    for (const profile_row& row : rows) {
        if (row.profile_idc == profile && allows(row, layer) &&
            (best == nullptr || is_less_capable(row, *best))) {
            best = &row;
        }
    }
    return best != nullptr ? best->name : nullptr;
}

const char* name_of(unsigned int profile, const h265_profile_tier_level::layer_t& layer) {
    switch (profile) {
        case 1:
            return "Main";
        case 2:
            return layer.one_picture_only_constraint_flag ? "Main 10 Still Picture" : "Main 10";
        case 3:
            return "Main Still Picture";
        case 12:
            return "Multiview Extended";
        case 13:
            return "Multiview Extended 10";
        default:
            return name_by_flags(profile, layer);
    }
}

}  // namespace

const char* h265_profile_name(const h265_profile_tier_level::layer_t& layer) {
    if (const char* const name = name_of(layer.profile_idc, layer)) {
        return name;
    }
    const auto& compatible = layer.profile_compatibility_flag;
    // A still picture is told by its own flag, as it has those of Main and Main 10 as well.
    constexpr std::size_t still_picture = 3;
    if (still_picture < compatible.size() && compatible[still_picture]) {
        return name_of(still_picture, layer);
    }
    for (std::size_t profile = 1; profile < compatible.size(); ++profile) {
        if (compatible[profile]) {
            if (const char* const name = name_of(static_cast<unsigned int>(profile), layer)) {
                return name;
            }
        }
    }
    return "";
}

}  // namespace kovran
