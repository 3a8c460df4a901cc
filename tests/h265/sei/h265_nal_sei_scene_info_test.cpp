#include <kovran/h265/sei/h265_nal_sei_scene_info.h>

#include <gtest/gtest.h>

#include "support/sei_payload.h"
#include "support/sei_record_parsing.h"

namespace kovran {
namespace {

TEST(H265NalSeiSceneInfo, MayBeAbsent) {
    const auto scene = test::record_of<h265_nal_sei_scene_info>("0", "scene_info_present_flag 0\n");
    EXPECT_FALSE(scene.scene_info_present_flag);
}

TEST(H265NalSeiSceneInfo, HasOneSceneUpToTransition3) {
    const auto scene = test::record_of<h265_nal_sei_scene_info>(  //
        "1 1 010 00100",                                          //
        "scene_info_present_flag 1\n"
        "prev_scene_id_valid_flag 1\n"
        "scene_id 1\n"
        "scene_transition_type 3\n");
    EXPECT_TRUE(scene.prev_scene_id_valid_flag);
    EXPECT_EQ(scene.scene_id, 1U);
    EXPECT_EQ(scene.scene_transition_type, 3U);
}

TEST(H265NalSeiSceneInfo, HasTwoScenesFromTransition4) {
    const auto scene = test::record_of<h265_nal_sei_scene_info>(  //
        "1 0 1 00101 011",                                        //
        "scene_info_present_flag 1\n"
        "prev_scene_id_valid_flag 0\n"
        "scene_id 0\n"
        "scene_transition_type 4\n"
        "second_scene_id 2\n");
    EXPECT_EQ(scene.scene_transition_type, 4U);
    EXPECT_EQ(scene.second_scene_id, 2U);
}

TEST(H265NalSeiSceneInfo, HasSevenTransitions) {
    EXPECT_EQ(test::out_of_range<h265_nal_sei_scene_info>("1 0 1 00111 1"), "");
    EXPECT_EQ(test::out_of_range<h265_nal_sei_scene_info>("1 0 1 0001000 1"),
              "scene_transition_type");
}

TEST(H265NalSeiSceneInfo, IsParsedAlone) {
    const auto scene = test::parsed_alone<h265_nal_sei_scene_info>("1 0 00111 1").record;
    EXPECT_EQ(scene.scene_id, 6U);
}

}  // namespace
}  // namespace kovran
