#include <kovran/h265/sei/h265_nal_sei_picture_snapshot.h>

#include <gtest/gtest.h>

#include "support/sei_payload.h"
#include "support/sei_record_parsing.h"

namespace kovran {
namespace {

TEST(H265NalSeiPictureSnapshot, HasAnIdentifier) {
    const auto snapshot = test::record_of<h265_nal_sei_picture_snapshot>("011", "snapshot_id 2\n");
    EXPECT_EQ(snapshot.snapshot_id, 2U);
}

TEST(H265NalSeiPictureSnapshot, IsParsedAlone) {
    EXPECT_EQ(test::parsed_alone<h265_nal_sei_picture_snapshot>("00101").record.snapshot_id, 4U);
}

// The longest code has 31 zeros before its first 1; no code has 32.
TEST(H265NalSeiPictureSnapshot, HasAnIdentifierOf32BitsAtTheMost) {
    const auto largest = test::record_of<h265_nal_sei_picture_snapshot>(
        "0000000000000000000000000000000 11111111111111111111111111111111",
        "snapshot_id 4294967294\n");
    EXPECT_EQ(largest.snapshot_id, 4294967294U);
    EXPECT_EQ(test::refusal_of(15,
                               "00000000000000000000000000000000 1"
                               "00000000000000000000000000000000 1000000"),
              "the data ends before the end of snapshot_id at bit 16");
}

}  // namespace
}  // namespace kovran
