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

}  // namespace
}  // namespace kovran
