#include <kovran/h265/sei/h265_nal_sei_temporal_mv_prediction_constraints.h>

#include <gtest/gtest.h>

#include "support/sei_payload.h"
#include "support/sei_record_parsing.h"

namespace kovran {
namespace {

TEST(H265NalSeiTemporalMvPredictionConstraints, HasAFlagOfEachKind) {
    const auto pictures = test::record_of<h265_nal_sei_temporal_mv_prediction_constraints>(
        "1 0",
        "prev_pics_not_used_flag 1\n"
        "no_intra_layer_col_pic_flag 0\n");
    EXPECT_TRUE(pictures.prev_pics_not_used_flag);
    EXPECT_FALSE(pictures.no_intra_layer_col_pic_flag);

    const auto layers = test::parsed_alone<h265_nal_sei_temporal_mv_prediction_constraints>("0 1");
    EXPECT_FALSE(layers.record.prev_pics_not_used_flag);
    EXPECT_TRUE(layers.record.no_intra_layer_col_pic_flag);
}

}  // namespace
}  // namespace kovran
