#include <kovran/h265/sei/h265_nal_sei_alternative_transfer_characteristics.h>

#include <gtest/gtest.h>

#include "support/sei_payload.h"
#include "support/sei_record_parsing.h"

namespace kovran {
namespace {

TEST(H265NalSeiAlternativeTransferCharacteristics, PrefersAnother) {
    const auto transfer = test::record_of<h265_nal_sei_alternative_transfer_characteristics>(
        "x92", "preferred_transfer_characteristics 146\n");
    EXPECT_EQ(transfer.preferred_transfer_characteristics, 0x92);
}

TEST(H265NalSeiAlternativeTransferCharacteristics, IsParsedAlone) {
    const auto parsed =
        test::parsed_alone<h265_nal_sei_alternative_transfer_characteristics>("x92");
    EXPECT_EQ(parsed.element_count, 1U);
    EXPECT_EQ(parsed.record.preferred_transfer_characteristics, 0x92);
    EXPECT_EQ(parsed.untraced.preferred_transfer_characteristics, 0x92);
}

}  // namespace
}  // namespace kovran
