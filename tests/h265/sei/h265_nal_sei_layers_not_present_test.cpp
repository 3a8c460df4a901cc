#include <kovran/h265/sei/h265_nal_sei_layers_not_present.h>

#include <array>
#include <string>
#include <variant>
#include <vector>

#include <gtest/gtest.h>

#include "support/sei_payload.h"
#include "support/sei_record_parsing.h"

namespace kovran {
namespace {

// VPS 9 with layers of nuh_layer_id 0 to `vps_max_layers_minus1`.
test::sei_stores layers_not_present_stores(unsigned char vps_max_layers_minus1) {
    test::sei_stores stores;
    stores.vps[9].vps_max_layers_minus1 = vps_max_layers_minus1;
    return stores;
}

TEST(H265NalSeiLayersNotPresent, HasAFlagForEachLayer) {
    const auto layers =
        test::record_of<h265_nal_sei_layers_not_present>("1001 0 1 1",
                                                         "lnp_sei_active_vps_id 9\n"
                                                         "layer_not_present_flag[0] 0\n"
                                                         "layer_not_present_flag[1] 1\n"
                                                         "layer_not_present_flag[2] 1\n",
                                                         layers_not_present_stores(2));
    EXPECT_EQ(layers.lnp_sei_active_vps_id, 9);
    EXPECT_EQ(layers.layer_not_present_flag, (std::vector<bool>{false, true, true}));
}

TEST(H265NalSeiLayersNotPresent, HasOneLayer) {
    const auto layers =
        test::record_of<h265_nal_sei_layers_not_present>("1001 0",
                                                         "lnp_sei_active_vps_id 9\n"
                                                         "layer_not_present_flag[0] 0\n",
                                                         layers_not_present_stores(0));
    EXPECT_EQ(layers.layer_not_present_flag, std::vector<bool>{false});
}

TEST(H265NalSeiLayersNotPresent, HasAtMost63Layers) {
    const std::vector<unsigned char> payload = test::bytes_of("1001" + std::string(63, '1') + "1");
    for (const unsigned char vps_max_layers_minus1 : std::array<unsigned char, 2>{62, 63}) {
        const test::sei_reading reading =
            test::read_payload(160, payload, layers_not_present_stores(vps_max_layers_minus1));
        EXPECT_TRUE(reading.read);
        const auto* const layers =
            std::get_if<h265_nal_sei_layers_not_present>(&reading.message.payload);
        ASSERT_NE(layers, nullptr);
        EXPECT_EQ(layers->layer_not_present_flag, std::vector<bool>(63, true));
    }
}

TEST(H265NalSeiLayersNotPresent, NeedsItsVps) {
    EXPECT_EQ(test::refusal_of(h265_nal_sei_layers_not_present::payload_type, "1000 1111",
                               layers_not_present_stores(2)),
              "VPS 8 is missing, needed by lnp_sei_active_vps_id at bit 16");
}

TEST(H265NalSeiLayersNotPresent, IsParsedAlone) {
    const test::sei_stores stores = layers_not_present_stores(2);
    const auto parsed =
        test::parsed_alone<h265_nal_sei_layers_not_present>("1001 0 1 1", stores.vps);
    EXPECT_EQ(parsed.element_count, 4U);
    EXPECT_EQ(parsed.record.layer_not_present_flag.size(), 3U);
    EXPECT_EQ(parsed.untraced.layer_not_present_flag.size(), 3U);
}

}  // namespace
}  // namespace kovran
