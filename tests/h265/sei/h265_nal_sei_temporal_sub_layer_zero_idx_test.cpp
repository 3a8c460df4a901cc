#include <kovran/h265/sei/h265_nal_sei_temporal_sub_layer_zero_idx.h>

#include <gtest/gtest.h>

#include "support/sei_payload.h"
#include "support/sei_record_parsing.h"

namespace kovran {
namespace {

TEST(H265NalSeiTemporalSubLayerZeroIdx, HasTwoIndices) {
    const auto index = test::record_of<h265_nal_sei_temporal_sub_layer_zero_idx>(  //
        "x05 xfe",                                                                 //
        "temporal_sub_layer_zero_idx 5\n"
        "irap_pic_id 254\n");
    EXPECT_EQ(index.temporal_sub_layer_zero_idx, 5);
    EXPECT_EQ(index.irap_pic_id, 254);
}

TEST(H265NalSeiTemporalSubLayerZeroIdx, IsParsedAlone) {
    EXPECT_EQ(
        test::parsed_alone<h265_nal_sei_temporal_sub_layer_zero_idx>("x01 x02").record.irap_pic_id,
        2);
}

}  // namespace
}  // namespace kovran
