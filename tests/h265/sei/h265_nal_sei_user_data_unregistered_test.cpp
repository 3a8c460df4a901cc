#include <kovran/h265/sei/h265_nal_sei_user_data_unregistered.h>

#include <vector>

#include <gtest/gtest.h>

#include "support/sei_payload.h"
#include "support/sei_record_parsing.h"

namespace kovran {
namespace {

TEST(H265NalSeiUserDataUnregistered, TakesAllBytes) {
    const auto data = test::record_of<h265_nal_sei_user_data_unregistered>(
        "x00x01x02x03x04x05x06x07x08x09x0ax0bx0cx0dx0ex0f x80x00",
        "uuid_iso_iec_11578 000102030405060708090a0b0c0d0e0f\n"
        "user_data_payload_byte[0..1] 8000\n",
        {}, test::payload_end::takes_all);
    EXPECT_EQ(data.uuid_iso_iec_11578[15], 0x0F);
    EXPECT_EQ(data.user_data_payload_byte, (std::vector<unsigned char>{0x80, 0x00}));
}

TEST(H265NalSeiUserDataUnregistered, MayHaveNoBytes) {
    const auto data = test::record_of<h265_nal_sei_user_data_unregistered>(
        "x00x01x02x03x04x05x06x07x08x09x0ax0bx0cx0dx0ex0f",
        "uuid_iso_iec_11578 000102030405060708090a0b0c0d0e0f\n", {}, test::payload_end::takes_all);
    EXPECT_TRUE(data.user_data_payload_byte.empty());
}

TEST(H265NalSeiUserDataUnregistered, HasAWholeUuid) {
    EXPECT_EQ(test::refusal_of(5, "x00x01x02x03x04x05x06x07x08x09x0ax0bx0cx0dx0e"),
              "the data ends before the end of uuid_iso_iec_11578 at bit 16");
}

TEST(H265NalSeiUserDataUnregistered, IsParsedAlone) {
    const auto data = test::parsed_alone<h265_nal_sei_user_data_unregistered>(
                          "x00x01x02x03x04x05x06x07x08x09x0ax0bx0cx0dx0ex0f x80")
                          .record;
    EXPECT_EQ(data.uuid_iso_iec_11578[1], 1);
    EXPECT_EQ(data.user_data_payload_byte, std::vector<unsigned char>{0x80});
}

}  // namespace
}  // namespace kovran
