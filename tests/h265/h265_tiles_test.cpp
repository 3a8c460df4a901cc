#include <kovran/h265/h265_tiles.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <vector>

namespace kovran {
namespace {

using boundaries = std::vector<unsigned int>;

// A picture of so many coding tree blocks of 16x16, the last ones of which are half outside.
h265_nal_sps sps_of(unsigned int columns, unsigned int rows) {
    h265_nal_sps sps;
    sps.log2_diff_max_min_luma_coding_block_size = 1;
    sps.pic_width_in_luma_samples = 16 * columns - 8;
    sps.pic_height_in_luma_samples = 16 * rows - 8;
    return sps;
}

h265_nal_pps uniform(unsigned int columns, unsigned int rows) {
    h265_nal_pps pps;
    pps.tiles_enabled_flag = true;
    pps.uniform_spacing_flag = true;
    pps.num_tile_columns_minus1 = columns - 1;
    pps.num_tile_rows_minus1 = rows - 1;
    return pps;
}

// The sizes of all tiles but the last ones.
h265_nal_pps coded(const boundaries& widths, const boundaries& heights) {
    h265_nal_pps pps = uniform(static_cast<unsigned int>(widths.size()) + 1,
                               static_cast<unsigned int>(heights.size()) + 1);
    pps.uniform_spacing_flag = false;
    for (const unsigned int width : widths) {
        pps.column_width_minus1.push_back(width - 1);
    }
    for (const unsigned int height : heights) {
        pps.row_height_minus1.push_back(height - 1);
    }
    return pps;
}

void expect_none(h265_tiles tiles, const h265_nal_pps& pps, const h265_nal_sps& sps) {
    EXPECT_FALSE(tiles.assign(pps, sps));
    EXPECT_EQ(tiles.column_boundaries, boundaries{});
    EXPECT_EQ(tiles.row_boundaries, boundaries{});
    EXPECT_EQ(tiles.columns(), 0U);
    EXPECT_EQ(tiles.rows(), 0U);
    EXPECT_EQ(tiles.tile_of(7), 0U);
    EXPECT_EQ(tiles.tile_scan_address(7), 7U);
}

TEST(H265Tiles, APictureWithoutTilesIsOne) {
    h265_nal_pps pps = uniform(3, 2);
    pps.tiles_enabled_flag = false;
    h265_tiles tiles;
    ASSERT_TRUE(tiles.assign(pps, sps_of(30, 17)));
    EXPECT_EQ(tiles.column_boundaries, (boundaries{0, 30}));
    EXPECT_EQ(tiles.row_boundaries, (boundaries{0, 17}));
    EXPECT_EQ(tiles.tile_of(509), 0U);
    EXPECT_EQ(tiles.tile_scan_address(509), 509U);
}

TEST(H265Tiles, UniformTilesDifferByOneBlock) {
    h265_tiles tiles;
    ASSERT_TRUE(tiles.assign(uniform(4, 2), sps_of(30, 17)));
    EXPECT_EQ(tiles.column_boundaries, (boundaries{0, 7, 15, 22, 30}));
    EXPECT_EQ(tiles.row_boundaries, (boundaries{0, 8, 17}));
    EXPECT_EQ(tiles.columns(), 4U);
    EXPECT_EQ(tiles.rows(), 2U);
    // Column 7 of row 8: behind 8 whole rows and the 7 by 9 blocks of the tile to the left.
    EXPECT_EQ(tiles.tile_of(8 * 30 + 7), 5U);
    EXPECT_EQ(tiles.tile_scan_address(8 * 30 + 7), 303U);
}

TEST(H265Tiles, BlocksAreCountedTileByTile) {
    h265_tiles tiles;
    ASSERT_TRUE(tiles.assign(coded({2}, {1}), sps_of(5, 4)));
    EXPECT_EQ(tiles.column_boundaries, (boundaries{0, 2, 5}));
    EXPECT_EQ(tiles.row_boundaries, (boundaries{0, 1, 4}));
    const std::vector<std::size_t> tile_of = {
        0, 0, 1, 1, 1,  //
        2, 2, 3, 3, 3,  //
        2, 2, 3, 3, 3,  //
        2, 2, 3, 3, 3,
    };
    const std::vector<unsigned int> order = {
        0, 1,  2,  3,  4,   //
        5, 6,  11, 12, 13,  //
        7, 8,  14, 15, 16,  //
        9, 10, 17, 18, 19,
    };
    for (unsigned int address = 0; address < 20; ++address) {
        EXPECT_EQ(tiles.tile_of(address), tile_of[address]) << address;
        EXPECT_EQ(tiles.tile_scan_address(address), order[address]) << address;
    }
    EXPECT_EQ(tiles.tile_of(20), 0U);
    EXPECT_EQ(tiles.tile_scan_address(20), 20U);
    EXPECT_EQ(tiles.tile_scan_address(0xFFFFFFFF), 0xFFFFFFFFU);
}

TEST(H265Tiles, TheLastTileMustHaveABlock) {
    h265_tiles tiles;
    EXPECT_TRUE(tiles.assign(coded({2, 2}, {3}), sps_of(5, 4)));
    expect_none(tiles, coded({2, 3}, {3}), sps_of(5, 4));
    expect_none(tiles, coded({2, 2}, {4}), sps_of(5, 4));
    expect_none(tiles, coded({0xFFFFFFFF, 2}, {1}), sps_of(5, 4));
    expect_none(tiles, coded({0, 2}, {1}), sps_of(5, 4));  // 2^32
}

TEST(H265Tiles, MissingSizesAreNoTiles) {
    h265_nal_pps pps = coded({2}, {1});
    pps.num_tile_columns_minus1 = 2;
    expect_none({}, pps, sps_of(5, 4));
    pps = coded({2}, {1});
    pps.num_tile_rows_minus1 = 2;
    expect_none({}, pps, sps_of(5, 4));
}

TEST(H265Tiles, EachTileHasABlock) {
    h265_tiles tiles;
    EXPECT_TRUE(tiles.assign(uniform(5, 4), sps_of(5, 4)));
    EXPECT_EQ(tiles.tile_of(19), 19U);
    expect_none(tiles, uniform(6, 4), sps_of(5, 4));
    expect_none(tiles, uniform(5, 5), sps_of(5, 4));
    expect_none(tiles, uniform(0, 1), sps_of(5, 4));  // 2^32
}

TEST(H265Tiles, NoSideHasMoreThanThatOfAnyPicture) {
    h265_tiles tiles;
    EXPECT_TRUE(tiles.assign(uniform(1056, 1), sps_of(1057, 1)));
    expect_none(tiles, uniform(1057, 1), sps_of(1057, 1));
    EXPECT_TRUE(tiles.assign(uniform(1, 1056), sps_of(1, 1057)));
    expect_none(tiles, uniform(1, 1057), sps_of(1, 1057));
}

TEST(H265Tiles, ColumnsWithoutRowsAreNoTiles) {
    h265_tiles tiles;
    tiles.column_boundaries = {0, 2, 5};
    EXPECT_EQ(tiles.tile_of(7), 0U);
    EXPECT_EQ(tiles.tile_scan_address(7), 7U);
}

TEST(H265Tiles, APictureHasBlocks) {
    h265_nal_sps sps = sps_of(5, 4);
    sps.pic_height_in_luma_samples = 0;
    expect_none({}, uniform(1, 1), sps);
    sps = sps_of(5, 4);
    sps.log2_diff_max_min_luma_coding_block_size = 29;
    expect_none({}, uniform(1, 1), sps);
}

// Blocks of 8x8 of a picture as large as can be coded: an address has 32 bits.
TEST(H265Tiles, APictureHasNoMoreBlocksThanAddresses) {
    h265_nal_sps sps;
    sps.pic_width_in_luma_samples = 8 * 65536;
    sps.pic_height_in_luma_samples = 8 * 65535;
    h265_tiles tiles;
    ASSERT_TRUE(tiles.assign(uniform(1, 1), sps));
    EXPECT_EQ(tiles.tile_scan_address(65536U * 65535U - 1), 65536U * 65535U - 1);
    sps.pic_height_in_luma_samples = 8 * 65536;
    expect_none(tiles, uniform(1, 1), sps);
    sps.pic_width_in_luma_samples = 0xFFFFFFFF;
    sps.pic_height_in_luma_samples = 0xFFFFFFFF;
    expect_none(tiles, uniform(2, 2), sps);
}

}  // namespace
}  // namespace kovran
