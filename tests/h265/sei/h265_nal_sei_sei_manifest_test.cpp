#include <kovran/h265/sei/h265_nal_sei_sei_manifest.h>

#include <vector>

#include <gtest/gtest.h>

#include "support/sei_payload.h"
#include "support/sei_record_parsing.h"

namespace kovran {
namespace {

TEST(H265NalSeiSeiManifest, HasADescriptionForEachType) {
    const auto manifest =
        test::record_of<h265_nal_sei_sei_manifest>("x00x02 x00x89 x01 x01x02 xff",
                                                   "manifest_num_sei_msg_types 2\n"
                                                   "manifest_sei_payload_type[0] 137\n"
                                                   "manifest_sei_description[0] 1\n"
                                                   "manifest_sei_payload_type[1] 258\n"
                                                   "manifest_sei_description[1] 255\n");
    EXPECT_EQ(manifest.manifest_num_sei_msg_types, 2);
    EXPECT_EQ(manifest.manifest_sei_payload_type, (std::vector<unsigned short>{137, 258}));
    EXPECT_EQ(manifest.manifest_sei_description, (std::vector<unsigned char>{1, 255}));
}

TEST(H265NalSeiSeiManifest, HasAnyNumberOfTypes) {
    const auto manifest =
        test::record_of<h265_nal_sei_sei_manifest>("x00x00", "manifest_num_sei_msg_types 0\n");
    EXPECT_TRUE(manifest.manifest_sei_payload_type.empty());
    const auto alone = test::parsed_alone<h265_nal_sei_sei_manifest>("x00x01 x00x04 x00");
    EXPECT_EQ(alone.record.manifest_sei_payload_type.size(), 1U);
}

TEST(H265NalSeiSeiManifest, HasTypesThatTheDataHolds) {
    EXPECT_EQ(test::refusal_of(200, "x00x03 x00x00x00 x00x00x00 x00x00"),
              "manifest_num_sei_msg_types at bit 16 is 3; allowed: 0 to 2");
}

TEST(H265NalSeiSeiManifest, TellsDescriptionsInWords) {
    const auto words = h265_nal_sei_sei_manifest::manifest_sei_description_to_str;
    EXPECT_STREQ(words(0), "not expected");
    EXPECT_STREQ(words(1), "expected, necessary");
    EXPECT_STREQ(words(2), "expected, unnecessary");
    EXPECT_STREQ(words(3), "expected, necessity undetermined");
    EXPECT_STREQ(words(4), "?");
}

}  // namespace
}  // namespace kovran
