#include <kovran/h265/sei/h265_nal_sei_post_filter_hint.h>

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/sei_payload.h"
#include "support/sei_record_parsing.h"

namespace kovran {
namespace {

test::sei_stores post_filter_hint_stores(unsigned int chroma_format_idc) {
    test::sei_stores stores;
    stores.sps.active_id = 3;
    stores.sps[3].chroma_format_idc = chroma_format_idc;
    return stores;
}

TEST(H265NalSeiPostFilterHint, HasOneMatrixWithoutChroma) {
    const auto hint =
        test::record_of<h265_nal_sei_post_filter_hint>("011 00100 10  010 011 1  1 00100 00101",
                                                       "filter_hint_size_y 2\n"
                                                       "filter_hint_size_x 3\n"
                                                       "filter_hint_type 2\n"
                                                       "filter_hint_value[0][0][0] 1\n"
                                                       "filter_hint_value[0][0][1] -1\n"
                                                       "filter_hint_value[0][0][2] 0\n"
                                                       "filter_hint_value[0][1][0] 0\n"
                                                       "filter_hint_value[0][1][1] 2\n"
                                                       "filter_hint_value[0][1][2] -2\n",
                                                       post_filter_hint_stores(0));
    EXPECT_EQ(hint.filter_hint_size_y, 2U);
    EXPECT_EQ(hint.filter_hint_size_x, 3U);
    EXPECT_EQ(hint.filter_hint_type, 2);
    EXPECT_EQ(hint.filter_hint_value, (std::vector<int>{1, -1, 0, 0, 2, -2}));
}

TEST(H265NalSeiPostFilterHint, HasThreeMatricesWithChroma) {
    const auto hint =
        test::record_of<h265_nal_sei_post_filter_hint>("010 010 00  1 010 011",
                                                       "filter_hint_size_y 1\n"
                                                       "filter_hint_size_x 1\n"
                                                       "filter_hint_type 0\n"
                                                       "filter_hint_value[0][0][0] 0\n"
                                                       "filter_hint_value[1][0][0] 1\n"
                                                       "filter_hint_value[2][0][0] -1\n",
                                                       post_filter_hint_stores(1));
    EXPECT_EQ(hint.filter_hint_value, (std::vector<int>{0, 1, -1}));
}

TEST(H265NalSeiPostFilterHint, HasMatricesOf1To15RowsAndColumns) {
    const test::sei_stores stores = post_filter_hint_stores(0);
    const std::string sizes = "000010000 000010000 00";
    EXPECT_TRUE(test::read_payload(22, test::bytes_of(sizes + std::string(225, '1')), stores).read);
    EXPECT_EQ(test::refusal_of(22, "000010001 010 00 xffxff", stores),
              "filter_hint_size_y at bit 16 is 16; allowed: 1 to 15");
    EXPECT_EQ(test::refusal_of(22, "010 000010001 00 xffxff", stores),
              "filter_hint_size_x at bit 19 is 16; allowed: 1 to 15");
    EXPECT_EQ(test::out_of_range<h265_nal_sei_post_filter_hint>("1 010 00", stores.sps.at(3)),
              "filter_hint_size_y");
    EXPECT_EQ(test::out_of_range<h265_nal_sei_post_filter_hint>("010 1 00", stores.sps.at(3)),
              "filter_hint_size_x");
}

TEST(H265NalSeiPostFilterHint, HasThreeTypes) {
    const test::sei_stores stores = post_filter_hint_stores(0);
    EXPECT_EQ(test::out_of_range<h265_nal_sei_post_filter_hint>("010 010 11 1", stores.sps.at(3)),
              "filter_hint_type");
}

TEST(H265NalSeiPostFilterHint, NeedsAnSps) {
    EXPECT_EQ(test::refusal_of(22, "010 010 00 1 1 1"), "no SPS is active");
    test::sei_stores stores;
    stores.sps.active_id = 2;
    EXPECT_EQ(test::refusal_of(22, "010 010 00 1 1 1", stores),
              "SPS 2 is missing, needed by last_payload_size_byte at bit 8");
}

TEST(H265NalSeiPostFilterHint, IsParsedAlone) {
    const auto hint = test::parsed_alone<h265_nal_sei_post_filter_hint>(
                          "010 010 01 1 1 00100", post_filter_hint_stores(2).sps.at(3))
                          .record;
    EXPECT_EQ(hint.filter_hint_value, (std::vector<int>{0, 0, 2}));
}

}  // namespace
}  // namespace kovran
