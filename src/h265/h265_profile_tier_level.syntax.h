#ifndef KOVRAN_SRC_H265_H265_PROFILE_TIER_LEVEL_SYNTAX_H
#define KOVRAN_SRC_H265_H265_PROFILE_TIER_LEVEL_SYNTAX_H

#include "h2645_common/element.h"
#include "h2645_common/value_range.h"

namespace kovran {

// What profile_tier_level(), clause 7.3.3, has for the general layer and for a sub-layer.
template <class Walker, class Layer>
[[nodiscard]] bool profile_tier_level_layer(Walker& walk, Layer& layer) {
    if (layer.profile_present_flag) {
        walk.u(2, ELEMENT(layer, profile_space), up_to(0));
        walk.u(1, ELEMENT(layer, tier_flag));
        walk.u(5, ELEMENT(layer, profile_idc));
        if (!walk.grow(32, layer.profile_compatibility_flag)) {
            return false;
        }
        for (unsigned int j = 0; j < 32; ++j) {
            walk.u(1, ELEMENT(layer, profile_compatibility_flag)[j]);
        }
        walk.u(1, ELEMENT(layer, progressive_source_flag));
        walk.u(1, ELEMENT(layer, interlaced_source_flag));
        walk.u(1, ELEMENT(layer, non_packed_constraint_flag));
        walk.u(1, ELEMENT(layer, frame_only_constraint_flag));

        const auto profile_is_any_of = [&layer](auto... idc) {
            return ((layer.profile_idc == idc || layer.profile_compatibility_flag[idc]) || ...);
        };
        if (profile_is_any_of(4U, 5U, 6U, 7U, 8U, 9U, 10U, 11U)) {
            walk.u(1, ELEMENT(layer, max_12bit_constraint_flag));
            walk.u(1, ELEMENT(layer, max_10bit_constraint_flag));
            walk.u(1, ELEMENT(layer, max_8bit_constraint_flag));
            walk.u(1, ELEMENT(layer, max_422chroma_constraint_flag));
            walk.u(1, ELEMENT(layer, max_420chroma_constraint_flag));
            walk.u(1, ELEMENT(layer, max_monochrome_constraint_flag));
            walk.u(1, ELEMENT(layer, intra_constraint_flag));
            walk.u(1, ELEMENT(layer, one_picture_only_constraint_flag));
            walk.u(1, ELEMENT(layer, lower_bit_rate_constraint_flag));
            if (profile_is_any_of(5U, 9U, 10U, 11U)) {
                walk.u(1, ELEMENT(layer, max_14bit_constraint_flag));
                walk.skip(33, "reserved_zero_33bits");
            } else {
                walk.skip(34, "reserved_zero_34bits");
            }
        } else if (profile_is_any_of(2U)) {
            walk.skip(7, "reserved_zero_7bits");
            walk.u(1, ELEMENT(layer, one_picture_only_constraint_flag));
            walk.skip(35, "reserved_zero_35bits");
        } else {
            walk.skip(43, "reserved_zero_43bits");
        }
        if (profile_is_any_of(1U, 2U, 3U, 4U, 5U, 9U, 11U)) {
            walk.u(1, ELEMENT(layer, inbld_flag));
        } else {
            walk.skip(1, "reserved_zero_bit");
        }
    } else {
        walk.rules.end_absent_structure(layer);
    }
    if (layer.level_present_flag) {
        walk.u(8, ELEMENT(layer, level_idc));
    }
    return walk.finish(layer.valid);
}

// profile_tier_level(), clause 7.3.3.
template <class Walker, class ProfileTierLevel>
[[nodiscard]] bool profile_tier_level(Walker& walk, ProfileTierLevel& ptl, bool profilePresentFlag,
                                      unsigned int maxNumSubLayersMinus1) {
    const auto walk_layer = [&walk](auto& layer) { return profile_tier_level_layer(walk, layer); };

    walk.assign(ptl.general.profile_present_flag, profilePresentFlag);
    walk.set(ptl.general.level_present_flag);
    if (!walk.prefixed("general_", ELEMENT(ptl, general), walk_layer)) {
        walk.clear(ptl.valid);
        return false;
    }
    if (!walk.at_most(named("maxNumSubLayersMinus1", maxNumSubLayersMinus1),
                      walk.rules.max_profile_tier_level_sub_layers) ||
        !walk.grow(maxNumSubLayersMinus1, ptl.sub_layers)) {
        return false;
    }
    for (unsigned int i = 0; i < maxNumSubLayersMinus1; ++i) {
        auto& layer = ptl.sub_layers[i];
        walk.u(1, named("sub_layer_profile_present_flag", layer.profile_present_flag, {{i}, 1}));
        walk.u(1, named("sub_layer_level_present_flag", layer.level_present_flag, {{i}, 1}));
    }
    if (maxNumSubLayersMinus1 > 0) {
        for (unsigned int i = maxNumSubLayersMinus1; i < 8; ++i) {
            walk.skip(2, "reserved_zero_2bits", i);
        }
    }
    for (unsigned int i = 0; i < maxNumSubLayersMinus1; ++i) {
        if (!walk.prefixed("sub_layer_", ELEMENT(ptl, sub_layers)[i], walk_layer)) {
            walk.clear(ptl.valid);
            return false;
        }
    }
    if (!walk.rules.infer_absent_sub_layers(walk, ptl)) {
        walk.clear(ptl.valid);
        return false;
    }
    return walk.finish(ptl.valid);
}

}  // namespace kovran

#endif  // KOVRAN_SRC_H265_H265_PROFILE_TIER_LEVEL_SYNTAX_H
