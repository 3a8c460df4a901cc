#ifndef KOVRAN_H265_H265_PROFILE_TIER_LEVEL_H
#define KOVRAN_H265_H265_PROFILE_TIER_LEVEL_H

#include <kovran/export.h>
#include <kovran/h2645_common/h2645_common_bitreader.h>
#include <kovran/h265/h265_fault.h>
#include <kovran/h265/h265_profile.h>
#include <kovran/h265/h265_trace.h>

#include <vector>

namespace kovran {

// profile_tier_level(), clause 7.3.3.
struct h265_profile_tier_level {
    // The general profile, tier and level, or those of a sub-layer. The names of the elements are
    // without the prefix general_ or sub_layer_.
    //
    // "Profile p" in the comments: profile_idc is p, or profile_compatibility_flag[p] is set.
    // Fields of absent elements keep their values.
    struct layer_t {
        std::vector<bool> profile_compatibility_flag;  // u(1) each: none before the profile was
                                                       // read once, then 32
        unsigned char profile_space = 0;               // u(2)
        unsigned char profile_idc = 0;                 // u(5)
        unsigned char level_idc = 0;                   // u(8), when level_present_flag

        bool progressive_source_flag = false;     // u(1)
        bool interlaced_source_flag = false;      // u(1)
        bool non_packed_constraint_flag = false;  // u(1)
        bool frame_only_constraint_flag = false;  // u(1)

        bool max_12bit_constraint_flag = false;         // u(1), profiles 4 to 11
        bool max_10bit_constraint_flag = false;         // u(1), profiles 4 to 11
        bool max_8bit_constraint_flag = false;          // u(1), profiles 4 to 11
        bool max_422chroma_constraint_flag = false;     // u(1), profiles 4 to 11
        bool max_420chroma_constraint_flag = false;     // u(1), profiles 4 to 11
        bool max_monochrome_constraint_flag = false;    // u(1), profiles 4 to 11
        bool intra_constraint_flag = false;             // u(1), profiles 4 to 11
        bool one_picture_only_constraint_flag = false;  // u(1), profiles 2 and 4 to 11
        bool lower_bit_rate_constraint_flag = false;    // u(1), profiles 4 to 11
        bool max_14bit_constraint_flag = false;         // u(1), profiles 5, 9, 10 and 11

        bool inbld_flag = false;  // u(1), profiles 1 to 5, 9 and 11
        bool tier_flag = false;   // u(1), read after profile_space

        bool profile_present_flag = false;  // the profile part is in the stream
        bool level_present_flag = false;    // level_idc is in the stream

        bool valid = false;  // a parse of this layer has succeeded

        // Reads the parts that profile_present_flag and level_present_flag announce; set these two
        // first. False when there is no memory for profile_compatibility_flag; `valid` is then
        // unchanged.
        KOVRAN_API bool parse(h2645_common_bitreader& reader);
        KOVRAN_API bool parse(h2645_common_bitreader& reader, h265_trace& trace,
                              h265_fault* fault = nullptr);
    };

    layer_t general;
    std::vector<layer_t> sub_layers;  // maxNumSubLayersMinus1 entries

    bool valid = false;

    // Reads one structure. Nothing is inferred for absent parts of a sub-layer.
    //
    // False, with `valid` unchanged: maxNumSubLayersMinus1 is above 128 (`general` has been read),
    // or there is no memory for sub_layers. False, with `valid` false: there is no memory within a
    // layer; layers read before it keep their values.
    KOVRAN_API bool parse(bool profilePresentFlag, unsigned int maxNumSubLayersMinus1,
                          h2645_common_bitreader& reader);
    KOVRAN_API bool parse(bool profilePresentFlag, unsigned int maxNumSubLayersMinus1,
                          h2645_common_bitreader& reader, h265_trace& trace,
                          h265_fault* fault = nullptr);

    // The same by the standard's own rules, in a record that is reset first: an absent profile or
    // level of a sub-layer is that of the layer above it, `general` for the highest. False, with
    // `valid` false: maxNumSubLayersMinus1 is above 6, the data ends, or there is no memory.
    KOVRAN_API bool parse_standard(bool profilePresentFlag, unsigned int maxNumSubLayersMinus1,
                                   h2645_common_bitreader& reader, h265_fault* fault = nullptr);
    KOVRAN_API bool parse_standard(bool profilePresentFlag, unsigned int maxNumSubLayersMinus1,
                                   h2645_common_bitreader& reader, h265_trace& trace,
                                   h265_fault* fault = nullptr);
};

}  // namespace kovran

#endif  // KOVRAN_H265_H265_PROFILE_TIER_LEVEL_H
