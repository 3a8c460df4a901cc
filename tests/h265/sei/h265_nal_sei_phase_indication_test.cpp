#include <kovran/h265/sei/h265_nal_sei_phase_indication.h>

#include <gtest/gtest.h>

#include "support/sei_payload.h"
#include "support/sei_record_parsing.h"

namespace kovran {
namespace {

TEST(H265NalSeiPhaseIndication, HasAPhaseInEachDirection) {
    const auto indication =
        test::record_of<h265_nal_sei_phase_indication>("x01 x03 x02 xff",
                                                       "pi_hor_phase_num 1\n"
                                                       "pi_hor_phase_den_minus1 3\n"
                                                       "pi_ver_phase_num 2\n"
                                                       "pi_ver_phase_den_minus1 255\n");
    EXPECT_EQ(indication.pi_hor_phase_num, 1);
    EXPECT_EQ(indication.pi_hor_phase_den_minus1, 3);
    EXPECT_EQ(indication.pi_ver_phase_num, 2);
    EXPECT_EQ(indication.pi_ver_phase_den_minus1, 255);
    EXPECT_EQ(test::parsed_alone<h265_nal_sei_phase_indication>("x09 x00 x00 x00")
                  .record.pi_hor_phase_num,
              9);
}

}  // namespace
}  // namespace kovran
