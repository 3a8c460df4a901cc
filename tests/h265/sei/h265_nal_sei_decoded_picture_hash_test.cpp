#include <kovran/h265/sei/h265_nal_sei_decoded_picture_hash.h>

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/sei_payload.h"
#include "support/sei_record_parsing.h"

namespace kovran {
namespace {

test::sei_stores decoded_picture_hash_stores(unsigned int chroma_format_idc) {
    test::sei_stores stores;
    stores.sps.active_id = 0;
    stores.sps[0].chroma_format_idc = chroma_format_idc;
    return stores;
}

TEST(H265NalSeiDecodedPictureHash, IsAnMd5OfOnePlane) {
    std::string elements = "hash_type 0\n";
    for (unsigned int i = 0; i < 16; ++i) {
        elements += "picture_md5[0][" + std::to_string(i) + "] " + std::to_string(17 * i) + '\n';
    }
    const auto hash = test::record_of<h265_nal_sei_decoded_picture_hash>(
        "x00 x00x11x22x33x44x55x66x77x88x99xaaxbbxccxddxeexff", elements,
        decoded_picture_hash_stores(0));
    ASSERT_EQ(hash.picture_md5.size(), 1U);
    EXPECT_EQ(hash.picture_md5[0][15], 0xFF);
    EXPECT_EQ(hash.plane_hash(0), "00112233445566778899aabbccddeeff");
    EXPECT_EQ(hash.plane_hash(1), "");
}

TEST(H265NalSeiDecodedPictureHash, IsAnMd5OfThreePlanes) {
    std::string elements = "hash_type 0\n";
    for (unsigned int i = 0; i < 48; ++i) {
        elements += "picture_md5[" + std::to_string(i / 16) + "][" + std::to_string(i % 16) + "] " +
                    std::to_string(i / 16 + 1) + '\n';
    }
    const auto hash = test::record_of<h265_nal_sei_decoded_picture_hash>(
        "x00 x01x01x01x01x01x01x01x01x01x01x01x01x01x01x01x01"
        "x02x02x02x02x02x02x02x02x02x02x02x02x02x02x02x02"
        "x03x03x03x03x03x03x03x03x03x03x03x03x03x03x03x03",
        elements, decoded_picture_hash_stores(3));
    EXPECT_EQ(hash.plane_hash(2), "03030303030303030303030303030303");
    EXPECT_EQ(hash.plane_hash(3), "");
}

TEST(H265NalSeiDecodedPictureHash, IsACrc) {
    const auto hash = test::record_of<h265_nal_sei_decoded_picture_hash>(  //
        "x01 x12x34 x00x0f xffxfe",                                        //
        "hash_type 1\n"
        "picture_crc[0] 4660\n"
        "picture_crc[1] 15\n"
        "picture_crc[2] 65534\n",
        decoded_picture_hash_stores(1));
    EXPECT_EQ(hash.picture_crc, (std::vector<unsigned short>{0x1234, 0x000F, 0xFFFE}));
    EXPECT_TRUE(hash.picture_md5.empty());
    EXPECT_EQ(hash.plane_hash(0), "1234");
    EXPECT_EQ(hash.plane_hash(1), "000f");
    EXPECT_EQ(hash.plane_hash(3), "");
}

TEST(H265NalSeiDecodedPictureHash, IsAChecksum) {
    const auto hash = test::record_of<h265_nal_sei_decoded_picture_hash>(  //
        "x02 x12x34x56x78",                                                //
        "hash_type 2\n"
        "picture_checksum[0] 305419896\n",
        decoded_picture_hash_stores(0));
    EXPECT_EQ(hash.picture_checksum, (std::vector<unsigned int>{0x12345678}));
    EXPECT_EQ(hash.plane_hash(0), "12345678");
}

TEST(H265NalSeiDecodedPictureHash, EndsBehindATypeThatNobodyKnows) {
    const auto hash = test::record_of<h265_nal_sei_decoded_picture_hash>(
        "x03", "hash_type 3\n", decoded_picture_hash_stores(1));
    EXPECT_EQ(hash.hash_type, 3);
    EXPECT_EQ(hash.plane_hash(0), "");
}

TEST(H265NalSeiDecodedPictureHash, NeedsAnSps) {
    EXPECT_EQ(test::refusal_of(132, "x01 x12x34"), "no SPS is active");
}

TEST(H265NalSeiDecodedPictureHash, IsParsedAlone) {
    const auto hash = test::parsed_alone<h265_nal_sei_decoded_picture_hash>(
                          "x01 x12x34", decoded_picture_hash_stores(0).sps.at(0))
                          .record;
    EXPECT_EQ(hash.picture_crc, (std::vector<unsigned short>{0x1234}));
}

TEST(H265NalSeiDecodedPictureHash, NamesTypes) {
    EXPECT_STREQ(h265_nal_sei_hash_type_to_str(0), "MD5");
    EXPECT_STREQ(h265_nal_sei_hash_type_to_str(1), "CRC");
    EXPECT_STREQ(h265_nal_sei_hash_type_to_str(2), "checksum");
    EXPECT_STREQ(h265_nal_sei_hash_type_to_str(3), "");
}

}  // namespace
}  // namespace kovran
