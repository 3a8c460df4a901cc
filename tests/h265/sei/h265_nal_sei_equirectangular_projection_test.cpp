#include <kovran/h265/sei/h265_nal_sei_equirectangular_projection.h>

#include <gtest/gtest.h>

#include "support/sei_payload.h"
#include "support/sei_record_parsing.h"

namespace kovran {
namespace {

TEST(H265NalSeiEquirectangularProjection, HasGuardBands) {
    const auto projection =
        test::record_of<h265_nal_sei_equirectangular_projection>("0 1 1 10 101 x82 x07",
                                                                 "erp_cancel_flag 0\n"
                                                                 "erp_persistence_flag 1\n"
                                                                 "erp_guard_band_flag 1\n"
                                                                 "erp_reserved_zero_2bits 2\n"
                                                                 "erp_guard_band_type 5\n"
                                                                 "erp_left_guard_band_width 130\n"
                                                                 "erp_right_guard_band_width 7\n");
    EXPECT_TRUE(projection.erp_persistence_flag);
    EXPECT_EQ(projection.erp_guard_band_type, 5);
    EXPECT_EQ(projection.erp_left_guard_band_width, 130);
    EXPECT_EQ(projection.erp_right_guard_band_width, 7);
}

TEST(H265NalSeiEquirectangularProjection, HasNoGuardBands) {
    const auto projection =
        test::record_of<h265_nal_sei_equirectangular_projection>("0 0 0 00",
                                                                 "erp_cancel_flag 0\n"
                                                                 "erp_persistence_flag 0\n"
                                                                 "erp_guard_band_flag 0\n"
                                                                 "erp_reserved_zero_2bits 0\n");
    EXPECT_FALSE(projection.erp_guard_band_flag);
}

TEST(H265NalSeiEquirectangularProjection, EndsAnEarlierOne) {
    const auto projection =
        test::record_of<h265_nal_sei_equirectangular_projection>("1", "erp_cancel_flag 1\n");
    EXPECT_TRUE(projection.erp_cancel_flag);
}

TEST(H265NalSeiEquirectangularProjection, IsParsedAlone) {
    const auto parsed =
        test::parsed_alone<h265_nal_sei_equirectangular_projection>("0 1 1 10 101 x82 x07");
    EXPECT_EQ(parsed.element_count, 7U);
    EXPECT_EQ(parsed.record.erp_left_guard_band_width, 130);
    EXPECT_EQ(parsed.untraced.erp_left_guard_band_width, 130);
}

}  // namespace
}  // namespace kovran
